#pragma once

#include <QPlainTextEdit>
#include <map>

namespace quillmark {

// A text to read, in fixed width: it can be selected by mouse and keyboard and copied, not changed.
// Lines with a remark are marked by a wave and a ground of their own; the tool tip has the remark.
class TextPage : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TextPage(QWidget* parent = nullptr);

  // By line, from 0. Set behind the text that they are of.
  void SetRemarks(std::map<int, QString> next);

  QSize sizeHint() const override;

 protected:
  bool viewportEvent(QEvent* event) override;

 private:
  std::map<int, QString> remarks;
};

}  // namespace quillmark
