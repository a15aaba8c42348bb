#pragma once

#include <QScrollArea>

namespace quillmark {

// Scrolls what it holds where there is no room for it. It has no frame and takes no focus of its
// own. What is too wide for it is written smaller first, down to `leastFont` percent of the area's
// own font, which a form sets.
class FittingScrollArea : public QScrollArea {
  Q_OBJECT
  Q_PROPERTY(int leastFont MEMBER leastFont)

 public:
  explicit FittingScrollArea(QWidget* parent = nullptr);

  // Holds the widget, which is a child of it from now on.
  void Hold(QWidget& held);
  // It is content with `least`, in pixels, even if what it holds wants more.
  void SetLeast(QSize next);
  // It wants `usual` even if what it holds wants less.
  void SetUsual(QSize next);

  // As much as what it holds wants, so that nothing scrolls.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int WidthAt(int percent) const;
  void WriteIn(int percent);
  void WriteSmaller();

  int leastFont = 100;  // percent
  int nowFont = 100;
  QSize least{160, 80};
  QSize usual{0, 0};
};

}  // namespace quillmark
