#include "figure.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

namespace quillmark::bench {

namespace {

using Cells = std::array<std::string, 7>;

std::string Number(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string With(const Unit& unit, double value) {
  return Number(value, unit.Decimals) + " " + unit.Name;
}

Cells CellsOf(const Figure& figure) {
  const bool hasRatio = figure.Floor > 0;
  const double ratio = hasRatio ? figure.Measured / figure.Floor : 0;
  const bool byRatio = figure.By == Judged::Ratio;
  const double judged = byRatio ? ratio : figure.Measured;
  const bool good = judged <= figure.Limit && (hasRatio || !byRatio);
  return {figure.Name,
          With(figure.In, figure.Measured),
          With(figure.In, figure.Floor),
          figure.FloorName,
          hasRatio ? Number(ratio, 2) : "-",
          byRatio ? "ratio " + Number(figure.Limit, 2) : With(figure.In, figure.Limit),
          good ? "ok" : "OVER"};
}

// The column of the name of the floor stands between columns of figures, which end flush.
bool FlushRight(std::size_t column) { return column != 0 && column != 3 && column != 6; }

std::string Line(const Cells& cells, const std::array<std::size_t, 7>& widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string gap(widths[i] - cells[i].size(), ' ');
    line += (i == 0 ? "" : "  ") + (FlushRight(i) ? gap + cells[i] : cells[i] + gap);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

}  // namespace

std::string Table(const std::vector<Figure>& figures, const std::vector<Failure>& failures) {
  std::vector<Cells> rows{{"Figure", "Measured", "Floor", "(what that is)", "Ratio", "Limit", ""}};
  std::transform(figures.begin(), figures.end(), std::back_inserter(rows), CellsOf);
  std::array<std::size_t, 7> widths{};
  for (const Cells& cells : rows) {
    for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], cells[i].size());
  }
  std::string table, below;
  for (const Cells& cells : rows) table += Line(cells, widths);
  for (const Figure& figure : figures) {
    if (!figure.Note.empty()) below += figure.Name + ": " + figure.Note + "\n";
  }
  for (const Failure& failure : failures) {
    below += failure.Measurement + ": NOT MEASURED, " + failure.Reason + "\n";
  }
  if (figures.empty()) return below;
  return below.empty() ? table : table + "\n" + below;
}

}  // namespace quillmark::bench
