#pragma once

#include <QTabBar>

namespace quillmark {

// A tab bar whose captions may stand on two lines.
class TwoLineTabBar : public QTabBar {
  Q_OBJECT

 public:
  using QTabBar::QTabBar;

 protected:
  QSize tabSizeHint(int index) const override {
    return QTabBar::tabSizeHint(index) + QSize(0, fontMetrics().lineSpacing());
  }
};

}  // namespace quillmark
