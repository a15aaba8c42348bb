#include "qt/widgets/table_rows.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "qt/text/latin1.h"
#include "qt/widgets/plain_tip.h"

namespace quillmark {

namespace {

// How a sign looks and what it is called.
struct Look {
  const char* Drawn;
  const char* Word;
};

constexpr Look LookOf(Sign sign) {
  switch (sign) {
    case Sign::Same:
      return {"=", QT_TRANSLATE_NOOP("TableRows", "same")};
    case Sign::Differs:
      return {"≠", QT_TRANSLATE_NOOP("TableRows", "differs")};
    case Sign::Pinned:
      return {"●", QT_TRANSLATE_NOOP("TableRows", "pinned")};
    case Sign::None:
      break;
  }
  return {"", ""};
}

}  // namespace

void TableRows::Follow(const Table& next) {
  const int rows = static_cast<int>(next.Rows().size());
  if (table != &next) {
    beginResetModel();
    table = &next;
    count = rows;
    endResetModel();
    return;
  }
  if (rows > count) {
    beginInsertRows({}, count, rows - 1);
    count = rows;
    endInsertRows();
  } else if (rows < count) {
    beginRemoveRows({}, rows, count - 1);
    count = rows;
    endRemoveRows();
  }
  if (rows > 0) emit dataChanged(index(0, 0), index(rows - 1, columnCount() - 1));
}

int TableRows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count; }

int TableRows::columnCount(const QModelIndex& parent) const {
  return table == nullptr || parent.isValid() ? 0 : static_cast<int>(table->Headings().size());
}

QString TableRows::TextOf(const TableRow& row, int column) const {
  if (IsMark(column)) return QString::fromUtf8(LookOf(row.Mark).Drawn);
  const auto place = static_cast<std::size_t>(column);
  return place < row.Cells.size() ? ToQt(OnOneLine(row.Cells[place])) : QString();
}

QVariant TableRows::Look(const TableRow& row, int column, int role) const {
  if (role == Qt::TextAlignmentRole && IsMark(column)) return QVariant(Qt::AlignCenter);
  if (role == Qt::ForegroundRole && row.Muted) {
    return QGuiApplication::palette().brush(QPalette::PlaceholderText);
  }
  if (role == Qt::FontRole && IsMark(column) && row.Mark == Sign::Differs) {
    QFont bold;
    bold.setBold(true);
    return bold;
  }
  return {};
}

QVariant TableRows::data(const QModelIndex& index, int role) const {
  // Rows that are about to go are not there any more.
  const auto number = static_cast<std::size_t>(index.row());
  if (!index.isValid() || number >= table->Rows().size()) return {};
  const TableRow& row = table->Rows()[number];
  const QString text = TextOf(row, index.column());
  const QString spoken = IsMark(index.column()) ? tr(LookOf(row.Mark).Word) : text;
  switch (role) {
    case Qt::DisplayRole:
      return text;
    case Qt::AccessibleTextRole:
      return spoken;
    case Qt::ToolTipRole:
      return PlainTip(row.Tip.empty() ? FromQt(spoken) : row.Tip);
    default:
      return Look(row, index.column(), role);
  }
}

QVariant TableRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  const std::string& heading = table->Headings()[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return ToQt(OnOneLine(heading));
  if (role == Qt::ToolTipRole) return PlainTip(heading);
  if (role == Qt::TextAlignmentRole && !IsMark(section)) {
    return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  }
  return {};
}

QString TableRows::AsText(const std::vector<std::size_t>& numbers) const {
  QString text;
  const auto add = [this, &text](auto textOf) {
    QStringList cells;
    for (int column = 0; column < columnCount(); ++column) cells += textOf(column);
    text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
  };
  if (numbers.size() == table->Rows().size()) {
    add([this](int column) {
      return headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    });
  }
  for (const std::size_t number : numbers) {
    add([&](int column) { return TextOf(table->Rows()[number], column); });
  }
  return text;
}

}  // namespace quillmark
