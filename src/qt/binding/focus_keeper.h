#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace quillmark {

// Brings the focus of a window back to where its user left it. While a run has switched the widget
// with the focus off, Qt moves the focus on; it goes back when the widget is on again, unless the
// user or the program has moved it meanwhile. It dies with the window.
class FocusKeeper : public QObject {
 public:
  explicit FocusKeeper(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusMoved(const QWidget* old, QWidget* now);
  void Watch(QWidget* next);

  QWidget& window;
  QPointer<QWidget> chosen;  // by the user or the program
  bool lost = false;         // it is off, and the focus elsewhere
};

}  // namespace quillmark
