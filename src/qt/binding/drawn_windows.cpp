#include "qt/binding/drawn_windows.h"

#include <QIcon>
#include <QLabel>
#include <QWidget>

#include "ui_frmSplash.h"
#include "ui_frmViewer.h"

namespace quillmark {

void WidenByCharacters(QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const int characters = widget->property("widthInCharacters").toInt();
    if (characters > 0) {
      widget->setMinimumWidth(widget->fontMetrics().averageCharWidth() * characters);
    }
  }
}

QWidget* DrawSplash(QWidget* parent) {
  auto* window = new QWidget(parent);
  Ui::frmSplash ui;
  ui.setupUi(window);
  window->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  const int size = window->fontMetrics().height() * 5;
  ui.picture->setPixmap(window->windowIcon().pixmap(size));
  return window;
}

QWidget* DrawViewer(QWidget* parent) {
  auto* window = new QDialog(parent);
  Ui::frmViewer ui;
  ui.setupUi(window);
  ui.findBar->Serve(*ui.txtViewer, *window);
  return window;
}

}  // namespace quillmark
