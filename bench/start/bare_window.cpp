#include "bare_window.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include "start_report.h"

namespace quillmark::bench {

namespace {

// An empty window that reports its first painting.
class BareWindow : public QMainWindow {
 protected:
  void paintEvent(QPaintEvent* event) override {
    QMainWindow::paintEvent(event);
    if (painted) return;
    painted = true;
    QTimer::singleShot(0, this, [] {
      PrintStart();
      QApplication::quit();
    });
  }

 private:
  bool painted = false;
};

}  // namespace

int ShowBareWindow(int argc, char* argv[]) {
  QApplication application(argc, argv);
  BareWindow window;
  window.resize(880, 680);
  window.show();
  return QApplication::exec();
}

}  // namespace quillmark::bench
