#pragma once

#include <QWidget>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "controls/clickable.h"
#include "controls/shape.h"
#include "qt/widgets/painted_controls.h"

namespace quillmark {

// One zone of the radio: its name, a scale, and on it a bar for each figure, with the figure's
// caption and number below. Everything is drawn from the controls: what they show and how high they
// stand within shadowBox. A window has eight of these; "zoneData_0" to "zoneData_7" show the
// counters, "zoneQuality_0" to "zoneQuality_7" the usable percentage.
class ZoneView : public QWidget, public PaintedControls {
  Q_OBJECT

 public:
  explicit ZoneView(QWidget* parent = nullptr);

  std::vector<std::string> Drawn() const override;
  void Join(const Form& form) override;
  void ControlChanged(const Control& control) override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  static constexpr int markCount = 11;

  // The control arrays behind a figure.
  struct Names {
    const char* Bar;
    const char* Count;
    const char* Caption;
    const char* Widest;  // text that must find room below the bar
  };
  // The controls of a figure, and what is painted of them.
  struct Column {
    const Shape* Bar;
    const Label* Count;
    const Label* Caption;
    double PaintedTop = 0;  // of its bar
  };
  // One step of the scale.
  struct Mark {
    const Label* Value;
    const Shape* Line;
  };
  static const std::vector<Names> counters;
  static const std::vector<Names> quality;

  const std::vector<Names>& Figures() const;
  int Zone() const;
  std::string ZoneName(const char* array) const;
  std::string MarkName(const char* array, int mark) const;
  void TellFigures();

  QFont ScaleFont() const;
  int ScaleWidth() const;
  int ColumnWidth() const;
  int HeightWithMarks(int lines) const;
  QRectF Plot() const;
  QRectF Placed(const Shape& shape, const QRectF& plot) const;
  QRectF ColumnArea(std::size_t index, const QRectF& plot) const;
  QRectF BelowColumn(std::size_t index, const QRectF& plot) const;
  void PaintGround(QPainter& painter, const QRect& dirty) const;
  void PaintName(QPainter& painter) const;
  void PaintScale(QPainter& painter, const QRectF& plot, const QRegion& dirty) const;
  void PaintBar(QPainter& painter, const QRectF& plot, std::size_t index);
  void PaintTexts(QPainter& painter, const QRectF& below, const Column& column) const;

  const Frame* frame = nullptr;
  const Shape* shadow = nullptr;
  std::array<Mark, markCount> marks{};
  std::vector<Column> columns;
  mutable int scaleWidth = 0;  // pixels; 0: to be measured, which takes long
};

}  // namespace quillmark
