#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace Ui {
class frmOrvalent;
}

namespace quillmark {

// Where the focus of the main window goes when its widget is switched off or goes out of sight. Qt
// takes the next widget of the tab order, which may be a notice or "Disconnect...": the user's next
// key would end a run. Here such a focus goes to the tabs or the tasks, or to the bare window while
// a run has switched these off; FocusKeeper then brings it back. It dies with the window.
class FocusGuide : public QObject {
 public:
  explicit FocusGuide(const Ui::frmOrvalent& ui);

 private:
  QPointer<QWidget> last;  // that had the focus
};

}  // namespace quillmark
