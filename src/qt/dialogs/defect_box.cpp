#include "qt/dialogs/defect_box.h"

#include <QMessageBox>

#include "qt/text/latin1.h"

namespace quillmark {

void ShowDefectBox(const std::string& what) {
  QMessageBox box(QMessageBox::Critical, QObject::tr("Internal error"),
                  QObject::tr("Something in this program went wrong. You can go on working, but "
                              "please report this text:\n\n%1")
                      .arg(ToQt(what)),
                  QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace quillmark
