#include "qt/widgets/zone_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "qt/text/latin1.h"

namespace quillmark {

namespace {

constexpr double scaleFontShare = 0.85;
constexpr double barShare = 0.62;      // of a column's width
constexpr double markLineInk = 0.35F;  // so that the bars stand out
constexpr int edge = 2;                // pixels that a bar's or the ground's rim may take
constexpr int fewestLines = 9;
constexpr int usualLines = 20;

// Each bar can be told from its neighbours without colours.
constexpr Qt::BrushStyle patterns[] = {Qt::SolidPattern, Qt::Dense4Pattern, Qt::BDiagPattern};

}  // namespace

const std::vector<ZoneView::Names> ZoneView::counters{
    {"zoneTXBar", "zoneTXCount", "lblTx", "00000000"},
    {"zoneRXBar", "zoneRXCount", "lblZoneRx", "00000000"},
    {"zoneErrorsBar", "zoneErrorsCount", "lblZoneErrors", "00000000"},
};
const std::vector<ZoneView::Names> ZoneView::quality{
    {"usableBar", "percentUsable", "lblPercent", "Zone 8 (skipped)"},
};

ZoneView::ZoneView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

const std::vector<ZoneView::Names>& ZoneView::Figures() const {
  return objectName().startsWith(QLatin1String("zoneQuality")) ? quality : counters;
}

int ZoneView::Zone() const { return objectName().section(QLatin1Char('_'), -1).toInt(); }

std::string ZoneView::ZoneName(const char* array) const {
  return std::string(array) + "_" + std::to_string(Zone());
}

std::string ZoneView::MarkName(const char* array, int mark) const {
  return std::string(array) + "_" + std::to_string(Zone() * markCount + mark);
}

std::vector<std::string> ZoneView::Drawn() const {
  std::vector<std::string> names{ZoneName("frameZone"), ZoneName("shadowBox")};
  for (const Names& figure : Figures()) {
    for (const char* array : {figure.Bar, figure.Count, figure.Caption}) {
      names.push_back(ZoneName(array));
    }
  }
  for (int mark = 0; mark < markCount; ++mark) {
    names.push_back(MarkName("labelZone", mark));
    names.push_back(MarkName("ZoneMarkerLine", mark));
  }
  return names;
}

void ZoneView::Join(const Form& form) {
  frame = &DrawnControl<Frame>(form, ZoneName("frameZone"));
  shadow = &DrawnControl<Shape>(form, ZoneName("shadowBox"));
  for (int mark = 0; mark < markCount; ++mark) {
    marks[static_cast<std::size_t>(mark)] = {
        &DrawnControl<Label>(form, MarkName("labelZone", mark)),
        &DrawnControl<Shape>(form, MarkName("ZoneMarkerLine", mark))};
  }
  for (const Names& figure : Figures()) {
    columns.push_back({&DrawnControl<Shape>(form, ZoneName(figure.Bar)),
                       &DrawnControl<Label>(form, ZoneName(figure.Count)),
                       &DrawnControl<Label>(form, ZoneName(figure.Caption)), 0});
  }
  ControlChanged(*frame);
}

// All changes of one poll end in one repaint, of no more than what has changed.
void ZoneView::ControlChanged(const Control& control) {
  const QRectF plot = Plot();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    if (&control == column.Bar) {
      const double top = Placed(*column.Bar, plot).top();
      QRectF moved = ColumnArea(i, plot);
      moved.setTop(std::min(top, column.PaintedTop));
      moved.setBottom(std::max(top, column.PaintedTop));
      return update(moved.toAlignedRect().adjusted(0, -edge, 0, edge));
    }
    if (&control == column.Count) {
      TellFigures();
      return update(BelowColumn(i, plot).toAlignedRect());
    }
  }
  scaleWidth = 0;
  // Eight digits need a wider scale than the usual ones, and the columns keep their room.
  updateGeometry();
  TellFigures();
  update();
}

void ZoneView::changeEvent(QEvent* event) {
  scaleWidth = 0;
  QWidget::changeEvent(event);
}

// In words, for who can't see the bars.
void ZoneView::TellFigures() {
  QStringList figures;
  for (const Column& column : columns) {
    figures << ToQt(column.Caption->Text() + " " + column.Count->Text());
  }
  setAccessibleName(ToQt(frame->Text()));
  setAccessibleDescription(figures.join(QStringLiteral(", ")));
}

QFont ZoneView::ScaleFont() const {
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * scaleFontShare);
  return small;
}

// Wide enough for the usual numbers, so that the bars do not move with each step of the scale.
int ZoneView::ScaleWidth() const {
  if (scaleWidth > 0) return scaleWidth;
  const QFontMetrics metrics(ScaleFont());
  int widest = metrics.horizontalAdvance(columns.size() > 1 ? QStringLiteral("000000")
                                                            : QStringLiteral("000"));
  for (const Mark& mark : marks) {
    if (mark.Value != nullptr) {
      widest = std::max(widest, metrics.horizontalAdvance(ToQt(mark.Value->Text())));
    }
  }
  scaleWidth = widest;
  return widest;
}

int ZoneView::ColumnWidth() const {
  int widest = 0;
  for (const Names& figure : Figures()) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(QLatin1String(figure.Widest)));
  }
  return widest + fontMetrics().averageCharWidth();
}

int ZoneView::HeightWithMarks(int lines) const {
  // The zone's name, two lines below the bars, and the distances between them.
  return fontMetrics().height() * 5 + QFontMetrics(ScaleFont()).height() * lines;
}

QSize ZoneView::minimumSizeHint() const {
  const int margins = fontMetrics().averageCharWidth() * 3;
  const int figures = static_cast<int>(Figures().size());
  return {margins + ScaleWidth() + figures * ColumnWidth(), HeightWithMarks(fewestLines)};
}

QSize ZoneView::sizeHint() const {
  // With room for the widest scale, so that the window need not grow when it comes.
  const int widest = QFontMetrics(ScaleFont())
                         .horizontalAdvance(columns.size() > 1 ? QStringLiteral("100000000")
                                                               : QStringLiteral("100"));
  const int more = std::max(0, widest - ScaleWidth());
  return {minimumSizeHint().width() + more, HeightWithMarks(usualLines)};
}

// Where the bars stand: between the zone's name and the two lines below them.
QRectF ZoneView::Plot() const {
  const int line = fontMetrics().height();
  const int margin = fontMetrics().averageCharWidth();
  return QRectF(rect()).adjusted(margin * 2 + ScaleWidth(), line * 2, -margin, -line * 2.75);
}

// The logic's figures count downwards from the top of its frame; shadowBox spans the whole scale.
QRectF ZoneView::Placed(const Shape& shape, const QRectF& plot) const {
  const double unit = plot.height() / shadow->Height();
  const double top = plot.top() + (shape.Top() - shadow->Top()) * unit;
  return {plot.left(), top, plot.width(), std::max(0.0, shape.Height() * unit)};
}

QRectF ZoneView::ColumnArea(std::size_t index, const QRectF& plot) const {
  const double width = plot.width() / static_cast<double>(columns.size());
  return {plot.left() + width * static_cast<double>(index), plot.top(), width, plot.height()};
}

// The two lines with the caption and the number.
QRectF ZoneView::BelowColumn(std::size_t index, const QRectF& plot) const {
  const double line = fontMetrics().height();
  QRectF below = ColumnArea(index, plot);
  below.setTop(plot.bottom() + line * 0.4);
  below.setHeight(line * 2);
  return below;
}

void ZoneView::paintEvent(QPaintEvent* event) {
  if (frame == nullptr) return;
  QPainter painter(this);
  const QRect dirty = event->rect();
  const QRectF plot = Plot();
  PaintGround(painter, dirty);
  if (dirty.top() < plot.top()) PaintName(painter);
  const QRegion& region = event->region();
  PaintScale(painter, plot, region);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (region.intersects(ColumnArea(i, plot).toAlignedRect())) PaintBar(painter, plot, i);
    const QRectF below = BelowColumn(i, plot);
    if (region.intersects(below.toAlignedRect())) PaintTexts(painter, below, columns[i]);
  }
}

void ZoneView::PaintGround(QPainter& painter, const QRect& dirty) const {
  const double radius = fontMetrics().height() / 5.0;
  const int inside = static_cast<int>(radius) + edge;
  if (rect().adjusted(inside, inside, -inside, -inside).contains(dirty)) {
    painter.fillRect(dirty, palette().base());
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double width = hasFocus() ? 2 : 1;
  painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid), width));
  painter.setBrush(palette().base());
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
  painter.restore();
}

void ZoneView::PaintName(QPainter& painter) const {
  const double line = fontMetrics().height();
  painter.save();
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(QRectF(0, line * 0.4, width(), line), Qt::AlignCenter, ToQt(frame->Text()));
  painter.restore();
}

void ZoneView::PaintScale(QPainter& painter, const QRectF& plot, const QRegion& dirty) const {
  if (!dirty.intersects(plot.toAlignedRect()) && dirty.boundingRect().left() > plot.left()) return;
  painter.fillRect(Placed(*shadow, plot), palette().alternateBase());
  painter.save();
  painter.setFont(ScaleFont());
  const double line = QFontMetricsF(ScaleFont()).height();
  const double gap = fontMetrics().averageCharWidth() / 2.0;
  // Where there is no room for all numbers, some are left out.
  const int step = plot.height() / (markCount - 1) >= line ? 1 : plot.height() / 5 >= line ? 2 : 5;
  QColor ink = palette().color(QPalette::Text);
  for (int i = 0; i < markCount; ++i) {
    const Mark& mark = marks[static_cast<std::size_t>(i)];
    const double at = Placed(*mark.Line, plot).top();
    const QRectF along(plot.left(), at - edge, plot.width(), 2 * edge);
    if (dirty.intersects(along.toAlignedRect())) {
      ink.setAlphaF(markLineInk);
      painter.setPen(ink);
      painter.drawLine(QPointF(plot.left(), at), QPointF(plot.right(), at));
    }
    if (i % step != 0 || dirty.boundingRect().left() > plot.left()) continue;
    ink.setAlphaF(1);
    painter.setPen(ink);
    painter.drawText(QRectF(0, at - line / 2, plot.left() - gap, line),
                     Qt::AlignRight | Qt::AlignVCenter, ToQt(mark.Value->Text()));
  }
  painter.restore();
}

void ZoneView::PaintBar(QPainter& painter, const QRectF& plot, std::size_t index) {
  Column& column = columns[index];
  QRectF bar = Placed(*column.Bar, plot);
  column.PaintedTop = bar.top();
  bar = bar.intersected(plot);
  if (bar.height() <= 0) return;
  const QRectF area = ColumnArea(index, plot);
  bar.setLeft(area.left() + area.width() * (1 - barShare) / 2);
  bar.setWidth(area.width() * barShare);
  const QColor ink = palette().color(QPalette::Highlight);
  painter.fillRect(bar, palette().base());
  painter.setPen(ink);
  painter.setBrush(QBrush(ink, patterns[index]));
  painter.drawRect(bar);
}

void ZoneView::PaintTexts(QPainter& painter, const QRectF& below, const Column& column) const {
  QRectF line = below;
  line.setHeight(below.height() / 2);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(line, Qt::AlignCenter, ToQt(column.Caption->Text()));
  line.translate(0, line.height());
  painter.drawText(line, Qt::AlignCenter, ToQt(column.Count->Text()));
}

}  // namespace quillmark
