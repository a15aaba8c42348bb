#pragma once

#include <QSvgRenderer>
#include <QWidget>

namespace quillmark {

// A drawing that fills its widget as far as its proportions let it, sharp at every size.
class SvgPicture : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString source READ Source WRITE SetSource)

 public:
  using QWidget::QWidget;

  QString Source() const { return source; }
  // The name of a file or a resource.
  void SetSource(const QString& next);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString source;
  QSvgRenderer renderer;
};

}  // namespace quillmark
