#include "qt/widgets/table_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QScrollBar>
#include <algorithm>

#include "qt/widgets/table_rows.h"
#include "text/at_end.h"

namespace quillmark {

namespace {

// In average characters and rows.
constexpr int widestColumn = 28;
constexpr int narrowestColumn = 6;
constexpr int usualColumns = 80;
constexpr int usualRows = 12;

}  // namespace

TableView::TableView(QWidget* parent) : QTableView(parent), rows(new TableRows(this)) {
  setModel(rows);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 4 / 3);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setTextElideMode(Qt::ElideRight);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
    const bool movable = horizontalHeader()->sectionResizeMode(column) == QHeaderView::Interactive;
    if (!quiet && movable) sized = true;
  });
  connect(this, &QAbstractItemView::doubleClicked, this, [this] { emit Opened(); });
}

void TableView::Follow(const Table& table) {
  const bool changed = shown != table.Version();
  shown = table.Version();
  quiet = true;
  const AtEnd loud([this] { quiet = false; });
  if (changed) rows->Follow(table);
  if (changed || SelectedRows() != table.Selected()) Select(table.Selected());
  if (changed && !sized) SizeColumns();
}

void TableView::SizeColumns() {
  const QStringList stretched = property("stretchColumns").toString().split(QLatin1Char(' '));
  const int character = fontMetrics().averageCharWidth();
  horizontalHeader()->setMinimumSectionSize(narrowestColumn * character);
  for (int column = 0; column < rows->columnCount(); ++column) {
    const bool stretches = stretched.contains(QString::number(column));
    horizontalHeader()->setSectionResizeMode(
        column, stretches ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (stretches) continue;
    const int wanted =
        std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
    setColumnWidth(column, std::min(wanted + character, widestColumn * character));
  }
}

void TableView::Select(const std::vector<std::size_t>& numbers) {
  QItemSelection chosen;
  const int last = rows->columnCount() - 1;
  for (const std::size_t number : numbers) {
    const int row = static_cast<int>(number);
    chosen.select(rows->index(row, 0), rows->index(row, last));
  }
  selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
  if (numbers.empty()) return;
  const QModelIndex first = rows->index(static_cast<int>(numbers.front()), 0);
  selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  scrollTo(first);
}

std::vector<std::size_t> TableView::SelectedRows() const {
  std::vector<std::size_t> numbers;
  for (const QModelIndex& index : selectionModel()->selectedRows()) {
    numbers.push_back(static_cast<std::size_t>(index.row()));
  }
  std::ranges::sort(numbers);
  return numbers;
}

void TableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!quiet) emit Chose(SelectedRows());
}

// Enter would click the window's default button otherwise.
void TableView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return CopySelected();
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && isSignalConnected(QMetaMethod::fromSignal(&TableView::Opened))) {
    emit Opened();
  } else {
    QTableView::keyPressEvent(event);
  }
}

void TableView::CopySelected() const {
  const auto numbers = SelectedRows();
  if (!numbers.empty()) QGuiApplication::clipboard()->setText(rows->AsText(numbers));
}

QSize TableView::sizeHint() const {
  const int width = usualColumns * fontMetrics().averageCharWidth();
  const int height = usualRows * verticalHeader()->defaultSectionSize();
  return {width + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
          height + horizontalHeader()->sizeHint().height() + 2 * frameWidth()};
}

}  // namespace quillmark
