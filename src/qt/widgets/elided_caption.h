#pragma once

#include "qt/widgets/clickable_text.h"

namespace quillmark {

// A caption with a file's name, which may be any: each line that is too long loses its middle, the
// tool tip has the whole, and "&" is no mnemonic.
class ElidedCaption : public CaptionLabel {
  Q_OBJECT

 public:
  explicit ElidedCaption(QWidget* parent = nullptr);

  // The text as far as there is room for it.
  QString Shown() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace quillmark
