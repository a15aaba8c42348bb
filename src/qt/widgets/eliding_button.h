#pragma once

#include <QPushButton>

namespace quillmark {

// A button whose caption the user may choose. Its size does not depend on the caption, so nothing
// moves when the caption changes. A caption that is too long ends in dots.
class ElidingButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  // The caption as far as there is room for it.
  QString Shown() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillmark
