#include "qt/binding/config_window.h"

#include <QDialog>
#include <QGridLayout>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolBar>
#include <algorithm>
#include <vector>

#include "catalogue/settings.h"
#include "config/config_values.h"
#include "config/editor/config_rows.h"
#include "qt/binding/draw_window.h"
#include "qt/text/latin1.h"
#include "qt/widgets/row_widgets.h"
#include "ui_frmConfigFile.h"

namespace quillmark {

namespace {

constexpr int pageCount = static_cast<int>(TabCount);

// In average characters: what a page wants, and the room of a hint.
constexpr int hintWidth = 30;
constexpr QSize leastRows{400, 120};

// The columns of the table, from the left.
enum Column { captionColumn, valueColumn, hintColumn };

template <class Widget>
Widget* Add(QWidget& parent, const QString& name) {
  auto* widget = new Widget(&parent);
  widget->setObjectName(name);
  return widget;
}

void SetBold(QWidget& widget, bool bold) {
  QFont font = widget.font();
  font.setBold(bold);
  widget.setFont(font);
}

// A value that radios don't take stands out, and a screen reader tells why.
void FollowProblem(ValueLine& value, QWidget& hint) {
  const auto show = [&value, &hint] {
    SetBold(value, !value.Problem().isEmpty());
    SetBold(hint, !value.Problem().isEmpty());
    value.setAccessibleDescription(value.Problem());
  };
  QObject::connect(&value, &ValueLine::ProblemChanged, &value, show);
}

void AddRow(const Setting& setting, QGridLayout& grid, int place) {
  QWidget& page = *grid.parentWidget();
  auto* caption = Add<CaptionLabel>(page, QLatin1String(setting.View.Label));
  auto* value = Add<ValueLine>(page, QLatin1String(setting.Name));
  auto* hint = Add<CaptionLabel>(page, QLatin1String(setting.Name) + QLatin1String(HintEnding));
  caption->setBuddy(value);
  value->setAccessibleName(ToQt(Subject(setting)));
  hint->setWordWrap(true);
  hint->setMinimumWidth(hint->fontMetrics().averageCharWidth() * hintWidth);
  FollowProblem(*value, *hint);
  grid.addWidget(caption, place, captionColumn);
  grid.addWidget(value, place, valueColumn);
  grid.addWidget(hint, place, hintColumn);
}

QGridLayout* AddPage(QStackedWidget& pages, int number) {
  auto* page = Add<QWidget>(pages, QStringLiteral("Page_%1").arg(number));
  auto* grid = new QGridLayout(page);
  int place = 0;
  for (const Setting* setting : SettingsOfPage(static_cast<std::size_t>(number))) {
    AddRow(*setting, *grid, place++);
  }
  grid->setColumnStretch(valueColumn, 2);
  grid->setColumnStretch(hintColumn, 3);
  grid->setRowStretch(place, 1);
  pages.addWidget(page);
  return grid;
}

// The columns stand in line with each other on all pages.
void AlignColumns(const QDialog& window, const std::vector<QGridLayout*>& grids) {
  int width = 0;
  for (const Setting& setting : AllSettings()) {
    if (!setting.Restored) continue;
    const QString caption = ToQt(Subject(setting));
    width = std::max(width, window.fontMetrics().horizontalAdvance(caption));
  }
  for (QGridLayout* grid : grids) grid->setColumnMinimumWidth(captionColumn, width);
}

// The keyboard goes from the buttons to the tabs, and from there to the rows.
void PutToolbarInTabOrder(const QToolBar& bar, QWidget& tabs) {
  for (QAction* action : bar.actions()) {
    QWidget* button = bar.widgetForAction(action);
    button->setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(button, &tabs);
  }
}

void AddKeys(QDialog& window, const Ui::frmConfigFile& ui) {
  // A key that does what a button of the toolbar does.
  struct Key {
    QKeySequence Sequence;
    QAction* Action;
  };
  for (const Key& key : {Key{QKeySequence::Open, ui.tbr_Open}, Key{QKeySequence::Save, ui.tbr_Save},
                         Key{Qt::CTRL | Qt::SHIFT | Qt::Key_S, ui.tbr_SaveAs},
                         Key{Qt::CTRL | Qt::Key_D, ui.tbr_Compare}}) {
    QObject::connect(new QShortcut(key.Sequence, &window), &QShortcut::activated, key.Action,
                     &QAction::trigger);
  }
  AddTabKeys(window, *ui.TabStrip);
}

}  // namespace

QWidget* DrawConfigWindow(QWidget* parent) {
  auto* window = new QDialog(parent);
  Ui::frmConfigFile ui;
  ui.setupUi(window);
  auto* pages = new QStackedWidget(window);
  std::vector<QGridLayout*> grids;
  grids.reserve(TabCount);
  for (int number = 0; number < pageCount; ++number) grids.push_back(AddPage(*pages, number));
  AlignColumns(*window, grids);
  ui.rowArea->Hold(*pages);
  ui.rowArea->SetLeast(leastRows);
  PutToolbarInTabOrder(*ui.Toolbar1, *ui.TabStrip);
  AddKeys(*window, ui);
  return window;
}

}  // namespace quillmark
