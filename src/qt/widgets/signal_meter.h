#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "qt/widgets/painted_controls.h"

namespace quillmark {

// The bar of the signal level, with the captions of its scale at their places below it.
class SignalMeter : public QWidget, public PaintedControls {
  Q_OBJECT

 public:
  explicit SignalMeter(QWidget* parent = nullptr);

  std::vector<std::string> Drawn() const override;
  void Join(const Form& form) override;
  void ControlChanged(const Control& control) override;

  // How much of the scale the level covers.
  int Percent() const { return static_cast<int>(Share() * 100); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double Share() const;
  int WidestCaption() const;
  void PaintBar(QPainter& painter, const QRectF& bar) const;

  const ProgressBar* level = nullptr;
  std::vector<const Label*> captions;  // from the low end
};

}  // namespace quillmark
