#pragma once

#include <QPlainTextEdit>

namespace quillmark {

// A text to read, in fixed width: it can be selected by mouse and keyboard and copied, not changed.
class TextPage : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TextPage(QWidget* parent = nullptr);

  QSize sizeHint() const override;
};

}  // namespace quillmark
