#include "qt/desktop/printed_report.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

#include "platform/dialogs.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// In points. The lines of the body stand apart, so that they can be read on paper.
constexpr double titleSize = 14;
constexpr double bodySize = 10;
constexpr double smallSize = 8.5;
constexpr double bodySpacing = 1.15;
constexpr double ruleWidth = 0.6;

constexpr QRgb ink = 0xFF000000;
constexpr QRgb grayInk = 0xFF555555;
constexpr QRgb ruleColor = 0xFF888888;

constexpr int leastColumns = 8;
constexpr int continuationIndent = 4;

QFont Plain(double points) {
  QFont font(QStringLiteral("sans-serif"));
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(points);
  return font;
}

QFont Bold(double points) {
  QFont font = Plain(points);
  font.setBold(true);
  return font;
}

QFont Fixed(double points) {
  QFont font(QStringLiteral("monospace"));
  font.setStyleHint(QFont::Monospace);
  font.setFixedPitch(true);
  font.setPointSizeF(points);
  return font;
}

// Where things stand on a page; all pages are alike. In the device's pixels.
class Sheet {
 public:
  explicit Sheet(QPainter& onto)
      : painter(onto),
        point(onto.device()->logicalDpiY() / 72.0),
        whole(0, 0, onto.device()->width(), onto.device()->height()),
        titleFont(Bold(titleSize)),
        bodyFont(Fixed(bodySize)),
        smallFont(Plain(smallSize)) {
    const double headHeight = Height(titleFont) + 6 * point;
    const double footHeight = Height(smallFont) + 5 * point;
    head = QRectF(whole.left(), whole.top(), whole.width(), headHeight);
    foot = QRectF(whole.left(), whole.bottom() - footHeight, whole.width(), footHeight);
    body = QRectF(whole.left(), head.bottom() + 14 * point, whole.width(),
                  foot.top() - head.bottom() - 26 * point);
  }

  int Columns() const {
    const double advance = QFontMetricsF(bodyFont, painter.device()).horizontalAdvance(u'0');
    return std::max(leastColumns, static_cast<int>(body.width() / advance));
  }
  int Rows() const { return std::max(1, static_cast<int>(body.height() / LineHeight())); }

  void Head(const QString& title, const QString& date) {
    Write(smallFont, grayInk, head, Qt::AlignRight | Qt::AlignTop, date, TitleBaseline());
    const QFontMetricsF metrics(titleFont, painter.device());
    const double dateWidth =
        QFontMetricsF(smallFont, painter.device()).horizontalAdvance(date) + 12 * point;
    Write(titleFont, ink, head, Qt::AlignLeft | Qt::AlignTop,
          metrics.elidedText(title, Qt::ElideRight, head.width() - dateWidth), 0);
    Rule(head.bottom());
  }
  void Line(int row, const QString& text) {
    const QRectF place(body.left(), body.top() + row * LineHeight(), body.width(), LineHeight());
    Write(bodyFont, ink, place, Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, text, 0);
  }
  void Foot(const QString& page) {
    Rule(foot.top());
    Write(smallFont, grayInk, foot, Qt::AlignLeft | Qt::AlignBottom, ToQt(ProgramTitle), 0);
    Write(smallFont, grayInk, foot, Qt::AlignRight | Qt::AlignBottom, page, 0);
  }

 private:
  double Height(const QFont& font) const { return QFontMetricsF(font, painter.device()).height(); }
  double LineHeight() const { return Height(bodyFont) * bodySpacing; }
  // How much lower the date begins than the title to stand on the same line.
  double TitleBaseline() const {
    return QFontMetricsF(titleFont, painter.device()).ascent() -
           QFontMetricsF(smallFont, painter.device()).ascent();
  }
  void Write(const QFont& font, QRgb color, const QRectF& place, int flags, const QString& text,
             double lower) {
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(color));
    painter.drawText(place.translated(0, lower), flags | Qt::TextSingleLine, text);
  }
  void Rule(double top) {
    painter.setPen(QPen(QColor::fromRgb(ruleColor), ruleWidth * point));
    painter.drawLine(QPointF(whole.left(), top), QPointF(whole.right(), top));
  }

  QPainter& painter;
  double point;
  QRectF whole, head, body, foot;
  QFont titleFont, bodyFont, smallFont;
};

bool Printable(QChar c) { return c.unicode() >= 32 && (c.unicode() < 127 || c.unicode() >= 160); }

// At the last blank that does not leave the line almost empty, else where the paper ends.
qsizetype BreakOf(const QString& line, qsizetype room) {
  const qsizetype blank = line.lastIndexOf(u' ', room);
  return blank > room / 3 ? blank : room;
}

void AddWrapped(std::vector<QString>& lines, QString line, qsizetype columns) {
  QString indent;
  while (indent.size() + line.size() > columns) {
    const qsizetype end = BreakOf(line, columns - indent.size());
    lines.push_back(indent + line.left(end));
    line = line.mid(end);
    while (line.startsWith(u' ')) line.remove(0, 1);
    indent = QString(continuationIndent, u' ');
  }
  if (indent.isEmpty() || !line.isEmpty()) lines.push_back(indent + line);
}

}  // namespace

PrintedReport::PrintedReport(std::string shownText, QString shownTitle, QString shownDate)
    : text(std::move(shownText)), title(std::move(shownTitle)), date(std::move(shownDate)) {}

std::vector<QString> PrintedReport::Lines(int columns) const {
  std::vector<QString> lines;
  for (QString line : InLines(text).split(u'\n')) {
    line.removeIf([](QChar c) { return !Printable(c); });
    AddWrapped(lines, line, columns);
  }
  const auto written = [](const QString& line) { return !line.trimmed().isEmpty(); };
  const auto first = std::find_if(lines.begin(), lines.end(), written);
  const auto last = std::find_if(lines.rbegin(), lines.rend(), written).base();
  return first < last ? std::vector<QString>(first, last) : std::vector<QString>();
}

bool PrintedReport::Paint(QPagedPaintDevice& device) const {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  Sheet sheet(painter);
  const std::vector<QString> lines = Lines(sheet.Columns());
  const int count = static_cast<int>(lines.size());
  const int rows = sheet.Rows();
  const int pages = std::max(1, (count + rows - 1) / rows);
  for (int page = 0; page < pages; ++page) {
    if (page > 0 && !device.newPage()) return false;
    sheet.Head(title, date);
    const int first = page * rows;
    for (int row = 0; row < std::min(rows, count - first); ++row) {
      sheet.Line(row, lines.at(static_cast<std::size_t>(first) + static_cast<std::size_t>(row)));
    }
    sheet.Foot(
        QCoreApplication::translate("PrintedReport", "Page %1 of %2").arg(page + 1).arg(pages));
  }
  return painter.end();
}

}  // namespace quillmark
