#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "ui_frmOrvalent.h"

namespace quillmark {

// The keys of the bar that finds a setting: Up and Down step, Enter goes to the row, Escape closes
// the bar. When it is closed the focus goes back to where it was. It is a child of the bar.
class FindKeys : public QObject {
 public:
  explicit FindKeys(const Ui::frmOrvalent& ui);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPointer<QWidget> before;  // what had the focus when the bar was opened
};

}  // namespace quillmark
