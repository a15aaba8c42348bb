#include "qt/binding/restore_window.h"

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QToolBar>
#include <algorithm>
#include <array>
#include <vector>

#include "qt/binding/draw_window.h"
#include "qt/text/latin1.h"
#include "qt/widgets/color_block.h"
#include "qt/widgets/row_comparison.h"
#include "qt/widgets/row_widgets.h"
#include "restore/restore_rows.h"
#include "ui_frmRestore.h"

namespace quillmark {

namespace {

constexpr int pageCount = static_cast<int>(TabCount);
constexpr int blockCount = 10;
constexpr int lastPage = pageCount - 1;

// The columns of the table, from the left.
enum Column { checkColumn, currentColumn, markColumn, newColumn, columnCount };

template <class Widget>
Widget* Add(QWidget& parent, const QString& name) {
  auto* widget = new Widget(&parent);
  widget->setObjectName(name);
  return widget;
}

QString SubjectOf(const RestoreRow& row) { return QString::fromStdString(row.Subject()); }

void AddRow(const RestoreRow& row, QGridLayout& grid, int place, QWidget& fileUser) {
  QWidget& page = *grid.parentWidget();
  auto* check = Add<RowCheckBox>(page, QLatin1String(row.Check));
  auto* mark = new QLabel(&page);
  auto* current = Add<ValueLine>(page, QLatin1String(row.Current));
  auto* next = Add<ValueLine>(page, QString::fromStdString(row.New));
  check->setText(QLatin1String(row.Caption));
  current->setReadOnly(true);
  current->setAccessibleName(QObject::tr("%1 in the radio").arg(SubjectOf(row)));
  next->setAccessibleName(QObject::tr("%1 in the file").arg(SubjectOf(row)));
  grid.addWidget(check, place, checkColumn);
  grid.addWidget(current, place, currentColumn);
  grid.addWidget(mark, place, markColumn);
  grid.addWidget(next, place, newColumn);
  new RowComparison(row, *check, *current, *next, *mark, fileUser);
}

// From the top down; rows that are hidden take no room.
void AddRows(int page, QGridLayout& grid, QWidget& fileUser) {
  std::vector<RestoreRow> rows = RestoreRows();
  std::erase_if(rows, [page](const RestoreRow& row) { return static_cast<int>(row.Page) != page; });
  std::ranges::stable_sort(rows, {}, &RestoreRow::Top);
  int place = 0;
  for (const RestoreRow& row : rows) AddRow(row, grid, place++, fileUser);
}

void AddWarning(QGridLayout& grid) {
  auto* label = Add<CaptionLabel>(*grid.parentWidget(), QStringLiteral("DiagWarnLabel"));
  label->setWordWrap(true);
  grid.addWidget(label, grid.rowCount(), 0, 1, columnCount);
}

// The columns stand in line with each other on all pages and below their headings.
void AlignColumns(const std::vector<QGridLayout*>& grids, QDialog& window, const QWidget& heading) {
  int width = heading.sizeHint().width();
  for (const RowCheckBox* check : window.findChildren<RowCheckBox*>()) {
    width = std::max(width, check->sizeHint().width());
  }
  for (QGridLayout* grid : grids) {
    grid->setHorizontalSpacing(window.fontMetrics().averageCharWidth());
    grid->setColumnMinimumWidth(checkColumn, width);
    grid->setColumnMinimumWidth(markColumn, RowComparison::MarkWidth(window));
    grid->setColumnStretch(currentColumn, 1);
    grid->setColumnStretch(newColumn, 1);
  }
}

QGridLayout* AddPage(QStackedWidget& pages, int number, QWidget& fileUser) {
  auto* page = Add<QWidget>(pages, QStringLiteral("RadSet_%1").arg(number));
  auto* grid = new QGridLayout(page);
  AddRows(number, *grid, fileUser);
  if (number == lastPage) AddWarning(*grid);
  grid->setRowStretch(grid->rowCount(), 1);
  pages.addWidget(page);
  return grid;
}

void AddProgress(QWidget& frame) {
  auto* row = new QHBoxLayout(&frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(1);
  auto* label = Add<CaptionLabel>(frame, QStringLiteral("ProgressLabel"));
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setFixedWidth(label->fontMetrics().horizontalAdvance(QStringLiteral(" 100% ")));
  QSizePolicy policy = label->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  label->setSizePolicy(policy);
  row->addWidget(label);
  row->addSpacing(label->fontMetrics().averageCharWidth());
  for (int i = 0; i < blockCount; ++i) {
    row->addWidget(Add<ColorBlock>(frame, QStringLiteral("ProgressBlock_%1").arg(i)));
  }
}

// Buttons without a text are named by their tool tips. The keyboard goes from them to the tabs, and
// from there to the rows.
void FinishToolbar(QToolBar& bar, QWidget& tabs) {
  const int side = bar.fontMetrics().height() * 3 / 2;
  bar.setIconSize({side, side});
  for (QAction* action : bar.actions()) {
    QWidget* button = bar.widgetForAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(button, &tabs);
    QObject::connect(action, &QAction::changed, button,
                     [action, button] { button->setAccessibleName(action->toolTip()); });
  }
}

void AddKeys(QDialog& window, const Ui::frmRestore& ui) {
  // A key that does what a button of the toolbar does.
  struct Key {
    QKeySequence Sequence;
    QAction* Action;
  };
  for (const Key& key :
       {Key{QKeySequence::Open, ui.tbr_OpenConfig}, Key{QKeySequence::Save, ui.tbr_SaveConfig},
        Key{QKeySequence::Refresh, ui.tbr_Refresh},
        Key{Qt::CTRL | Qt::Key_Return, ui.tbr_ProgramRadio},
        Key{Qt::CTRL | Qt::Key_Enter, ui.tbr_ProgramRadio}}) {
    QObject::connect(new QShortcut(key.Sequence, &window), &QShortcut::activated, key.Action,
                     &QAction::trigger);
  }
  const struct {
    QKeyCombination Keys;
    QAbstractButton* Button;
  } ticks[] = {
      {Qt::CTRL | Qt::Key_D, ui.TickDifferingButton},
      {Qt::CTRL | Qt::SHIFT | Qt::Key_A, ui.CheckAllButton},
      {Qt::CTRL | Qt::SHIFT | Qt::Key_N, ui.UnCheckAllButton},
  };
  for (const auto& each : ticks) {
    QObject::connect(new QShortcut(each.Keys, &window), &QShortcut::activated, each.Button,
                     &QAbstractButton::click);
  }
  AddTabKeys(window, *ui.TabStrip);
}

}  // namespace

QWidget* DrawRestoreWindow(QWidget* parent) {
  auto* window = new QDialog(parent);
  Ui::frmRestore ui;
  ui.setupUi(window);
  // A column without a widget gets no spacing.
  ui.headings->addWidget(new QLabel(ui.DescriptionFrame), 0, markColumn);
  std::vector<QGridLayout*> grids{ui.headings};
  for (int number = 0; number < pageCount; ++number) {
    grids.push_back(AddPage(*ui.pages, number, *ui.CheckAllButton));
  }
  AlignColumns(grids, *window, *ui.Label1);
  AddProgress(*ui.Frame2);
  FinishToolbar(*ui.Toolbar1, *ui.TabStrip);
  AddKeys(*window, ui);
  return window;
}

}  // namespace quillmark
