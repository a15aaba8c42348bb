#pragma once

#include <QWidget>
#include <cstdint>

namespace quillmark {

// One block of a progress row: a filled rectangle with a border, as large as a capital letter of
// its font needs. It keeps its place while it is hidden.
class ColorBlock : public QWidget {
  Q_OBJECT

 public:
  explicit ColorBlock(QWidget* parent = nullptr);

  // Colours are &HBBGGRR, or one of the theme's; the border is in pixels, 0 for none.
  void SetLook(std::uint32_t fill, std::uint32_t border, int width);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor Resolved(std::uint32_t color) const;

  std::uint32_t fillColor = 0;
  std::uint32_t borderColor = 0;
  int borderWidth = 0;
};

}  // namespace quillmark
