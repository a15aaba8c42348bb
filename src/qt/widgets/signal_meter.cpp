#include "qt/widgets/signal_meter.h"

#include <QAccessible>
#include <QPainter>
#include <algorithm>

#include "qt/text/latin1.h"

namespace quillmark {

namespace {

constexpr const char* captionNames[] = {"Label3", "Label8", "Label7", "Label6",
                                        "Label1", "Label5", "Label4", "Label2"};

}  // namespace

SignalMeter::SignalMeter(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

std::vector<std::string> SignalMeter::Drawn() const {
  std::vector<std::string> names{"ProgressBar1"};
  names.insert(names.end(), std::begin(captionNames), std::end(captionNames));
  return names;
}

void SignalMeter::Join(const Form& form) {
  level = &DrawnControl<ProgressBar>(form, "ProgressBar1");
  for (const char* name : captionNames) captions.push_back(&DrawnControl<Label>(form, name));
  ControlChanged(*level);
}

void SignalMeter::ControlChanged(const Control&) {
  setAccessibleDescription(ToQt(captions.front()->Text() + " to " + captions.back()->Text() + ": " +
                                std::to_string(Percent()) + " %"));
  QAccessibleValueChangeEvent event(this, Percent());
  QAccessible::updateAccessibility(&event);
  update();
}

// Of the scale, that the bar covers.
double SignalMeter::Share() const {
  const int range = level->Max() - level->Min();
  return range <= 0 ? 0 : static_cast<double>(level->Value() - level->Min()) / range;
}

int SignalMeter::WidestCaption() const {
  int widest = 0;
  for (const Label* caption : captions) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(ToQt(caption->Text())));
  }
  return widest;
}

QSize SignalMeter::sizeHint() const {
  const int gap = fontMetrics().averageCharWidth() * 2;
  return {static_cast<int>(captions.size()) * (WidestCaption() + gap), fontMetrics().height() * 4};
}

void SignalMeter::paintEvent(QPaintEvent*) {
  if (captions.empty()) return;
  QPainter painter(this);
  const double line = fontMetrics().height();
  const double half = WidestCaption() / 2.0;
  const QRectF bar(half, 1, width() - 2 * half, line * 2);
  PaintBar(painter, bar);
  painter.setPen(palette().color(QPalette::WindowText));
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(captions.size() - 1);
    const double at = bar.left() + share * bar.width();
    painter.drawLine(QPointF(at, bar.bottom()), QPointF(at, bar.bottom() + line * 0.4));
    painter.drawText(QRectF(at - half, bar.bottom() + line * 0.6, 2 * half, line), Qt::AlignCenter,
                     ToQt(captions[i]->Text()));
  }
}

void SignalMeter::PaintBar(QPainter& painter, const QRectF& bar) const {
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().base());
  painter.drawRect(bar);
  QRectF filled = bar;
  filled.setWidth(bar.width() * Share());
  painter.fillRect(filled, palette().highlight());
}

}  // namespace quillmark
