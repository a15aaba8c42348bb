#include "qt/binding/main_window.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "qt/binding/find_keys.h"
#include "qt/binding/focus_guide.h"
#include "qt/binding/main_layout.h"
#include "qt/widgets/clickable_text.h"
#include "qt/widgets/notice_line.h"
#include "qt/widgets/notice_row.h"
#include "ui_frmOrvalent.h"

namespace quillmark {

namespace {

// Of a panel of the status bar, in average characters.
constexpr int leastPanelWidth = 8;

// Of the progress bar in the status bar, in average characters.
constexpr int runBarWidth = 24;

QLabel* MakePanel(const char* name, QWidget& bar) {
  auto* panel = new QLabel(&bar);
  panel->setObjectName(QLatin1String(name));
  panel->setTextFormat(Qt::PlainText);
  panel->setTextInteractionFlags(Qt::TextSelectableByMouse);
  panel->setIndent(panel->fontMetrics().averageCharWidth());
  // A long text must not widen the window.
  panel->setMinimumWidth(panel->fontMetrics().averageCharWidth() * leastPanelWidth);
  return panel;
}

// Keeps its place while it is hidden, so that nothing jumps when it comes and goes.
QProgressBar* MakeRunBar(QWidget& bar) {
  auto* run = new QProgressBar(&bar);
  run->setObjectName(QStringLiteral("barRun"));
  run->setAccessibleName(QObject::tr("Settings done and to do"));
  run->setFixedWidth(run->fontMetrics().averageCharWidth() * runBarWidth);
  run->setMaximumHeight(run->fontMetrics().height() + 4);
  QSizePolicy policy = run->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  run->setSizePolicy(policy);
  return run;
}

// A form can hold neither a spacer nor another widget in a toolbar. The buttons that change the
// view, and the lamp, have a bar of their own: where there is no room for all, the other bar's last
// buttons go into its menu, and these stay.
void FillToolbar(QMainWindow& window, const Ui::frmOrvalent& ui) {
  auto* bar = new QToolBar(&window);
  bar->setObjectName(QStringLiteral("viewBar"));
  bar->setMovable(false);
  auto* gap = new QWidget(bar);
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(gap);
  bar->addWidget(ui.viewPanel);
  bar->setMinimumWidth(bar->sizeHint().width());
  window.addToolBar(Qt::TopToolBarArea, bar);
  for (QToolBar* each : {ui.tbrToolBar, bar}) {
    each->setContextMenuPolicy(Qt::PreventContextMenu);
  }
  window.setContextMenuPolicy(Qt::NoContextMenu);
}

// One line high even while no notice stands, so that nothing jumps when one comes.
void FillNoticeStrip(QWidget& strip, const NoticeLine& line) {
  auto* row = new NoticeRow(&strip);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(line.fontMetrics().averageCharWidth());
  for (auto* notice : strip.findChildren<NoticeLine*>()) row->addWidget(notice);
  strip.setMinimumHeight(line.sizeHint().height());
}

// A form can hold nothing in a status bar.
void FillStatusBar(QStatusBar& bar) {
  bar.addWidget(MakePanel("pnl_Status", bar), 3);
  bar.addWidget(MakePanel("pnl_Settings", bar), 2);
  bar.addWidget(MakePanel("pnl_ConnectTime", bar), 1);
  bar.addPermanentWidget(MakeRunBar(bar));
}

// A form can hold no menu without a title.
void AddPresetMenu(QMainWindow& window, const Ui::frmOrvalent& ui) {
  auto* presets = new QMenu(&window);
  presets->setObjectName(QStringLiteral("mnuPreset"));
  presets->addActions(
      {ui.mnuPresetView, ui.mnuPresetDelete, ui.mnuPresetRename, ui.mnuPresetEditDesc});
}

void ShowPowerInWords(const Ui::frmOrvalent& ui) {
  QObject::connect(
      ui.sldPwr, &QSlider::valueChanged, ui.sldPwrValue,
      [label = ui.sldPwrValue](int dBm) { label->setText(QObject::tr("%1 dBm").arg(dBm)); });
}

void HoldSizes(const Ui::frmOrvalent& ui) {
  for (QPushButton* help : {ui.cmdRptHelp1, ui.cmdRptHelp2}) {
    help->setFixedWidth(help->fontMetrics().height() * 2);
  }
}

// A text that is written smaller where its room is too low for it.
class FirstSteps : public CaptionLabel {
 public:
  using CaptionLabel::CaptionLabel;

 protected:
  void resizeEvent(QResizeEvent* event) override {
    CaptionLabel::resizeEvent(event);
    for (int percent = 100; percent >= leastShare; percent -= 5) {
      QFont face = parentWidget()->font();
      face.setBold(false);
      face.setPointSizeF(face.pointSizeF() * percent / 100);
      setFont(face);
      if (heightForWidth(width()) <= height()) break;
    }
  }

 private:
  static constexpr int leastShare = 70;  // percent
};

// Over the middle of the terminal, whose ink and paper the user may have chosen.
void AddFirstSteps(QPlainTextEdit& terminal) {
  auto* steps = new FirstSteps(terminal.viewport());
  steps->setObjectName(QStringLiteral("FirstSteps"));
  steps->setWordWrap(true);
  steps->setAlignment(Qt::AlignCenter);
  steps->setForegroundRole(QPalette::Text);
  steps->setAttribute(Qt::WA_TransparentForMouseEvents);
  // The layout must not want more height than there is.
  steps->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
  auto* around = new QVBoxLayout(terminal.viewport());
  around->setContentsMargins(4, 0, 4, 0);
  around->addWidget(steps);
}

// An entry of a menu that clicks a button, and the key that does so too.
struct ClickEntry {
  const char* Text;
  const char* Key;
  QAbstractButton* Button;
};

// A toolbar that lacks the room hides buttons. Another button that is hidden itself, such as a
// notice that tells nothing, can't be clicked.
bool IsOfToolbar(const QAbstractButton& button) {
  return qobject_cast<const QToolBar*>(button.parentWidget()) != nullptr;
}

bool CanBeClicked(const QAbstractButton& button) {
  return button.isEnabled() && (IsOfToolbar(button) || !button.isHidden());
}

// The tasks and the settings share one place: the view with the button comes first. A tool without
// room is in neither.
void ClickInItsView(QAbstractButton& button, const Ui::frmOrvalent& ui) {
  if (!CanBeClicked(button)) return;
  const bool inView = ui.viewStack->isAncestorOf(&button);
  if (inView && !button.isVisibleTo(button.window())) ui.ButtonAdv->click();
  button.click();
}

// What buttons do is found in a menu as well, with its key, ahead of `next`. While its menu is open
// an entry shows whether its button is on; else it is on, and the button decides.
void InsertEntries(const Ui::frmOrvalent& ui, QMenu& menu, QAction* next,
                   std::initializer_list<ClickEntry> entries) {
  for (const ClickEntry& entry : entries) {
    auto* action = new QAction(QObject::tr(entry.Text), &menu);
    action->setShortcut(QKeySequence(QLatin1String(entry.Key)));
    menu.insertAction(next, action);
    QAbstractButton* button = entry.Button;
    QObject::connect(action, &QAction::triggered, button,
                     [button, ui] { ClickInItsView(*button, ui); });
    QObject::connect(&menu, &QMenu::aboutToShow, action,
                     [action, button] { action->setEnabled(CanBeClicked(*button)); });
    QObject::connect(
        &menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); },
        Qt::QueuedConnection);
  }
}

void AddFileEntries(const Ui::frmOrvalent& ui) {
  QAction* first = ui.mnuFile->actions().constFirst();
  InsertEntries(ui, *ui.mnuFile, first,
                {{"Program &From File...", "Ctrl+O", ui.cmdProgramFromFile},
                 {"&Save To File...", "Ctrl+S", ui.cmdSaveToFile},
                 {"&Print...", "Ctrl+P", ui.cmdPrint}});
  ui.mnuFile->insertSeparator(first);
}

QAbstractButton* ToolbarButton(const Ui::frmOrvalent& ui, QAction* action) {
  return qobject_cast<QAbstractButton*>(ui.tbrToolBar->widgetForAction(action));
}

// Behind "Port Open", which connects anew when the port is open.
void AddPortEntry(const Ui::frmOrvalent& ui) {
  InsertEntries(ui, *ui.mnuPort, ui.mnuPort->actions().at(1),
                {{"&Disconnect", "Shift+F3", ToolbarButton(ui, ui.tbr_Disconnect)}});
}

// Ahead of the passwords.
void AddLoginEntries(const Ui::frmOrvalent& ui) {
  InsertEntries(ui, *ui.mnuSpecial, ui.mnuRadioPassSub->menuAction(),
                {{"&Login...", "F12", ToolbarButton(ui, ui.tbr_Login)},
                 {"Lo&gout", "Shift+F12", ToolbarButton(ui, ui.tbr_Logout)}});
}

void AddViewMenu(const Ui::frmOrvalent& ui) {
  auto* view = new QMenu(QObject::tr("&View"), ui.menuBar);
  view->setAccessibleName(QObject::tr("View"));
  // The toolbar's action has the key of the last one.
  QAbstractButton* terminal = ToolbarButton(ui, ui.tbr_Terminal);
  InsertEntries(ui, *view, nullptr,
                {{"&Refresh", "F5", ui.ButtonRefresh},
                 {"&What the Radio Took", "F6", ui.LastRun},
                 {"&Zone Data", "F7", ui.ButtonZoneData},
                 {"&Signal Level", "Shift+F7", ui.ButtonRSSI},
                 {"&Advanced or Tasks", "F9", ui.ButtonAdv},
                 {"&Terminal\tF8", "", terminal}});
  view->addSeparator();
  // The second key works in the terminal too, where the first one goes to the radio.
  ui.mnuFind->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::Key_F), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)});
  view->addActions({ui.mnuFind, ui.mnuFilterFactory, ui.mnuFilterCopy});
  ui.menuBar->insertMenu(ui.mnuAbout, view);
}

// The keyboard reaches the toolbar ahead of the rest of the window.
void PutToolbarInTabOrder(const Ui::frmOrvalent& ui) {
  QWidget* last = nullptr;
  for (QAction* action : ui.tbrToolBar->actions()) {
    auto* button = qobject_cast<QToolButton*>(ui.tbrToolBar->widgetForAction(action));
    if (button == nullptr) continue;
    button->setFocusPolicy(Qt::TabFocus);
    if (last != nullptr) QWidget::setTabOrder(last, button);
    last = button;
  }
  if (last != nullptr) QWidget::setTabOrder(last, ui.txtTerm);
}

}  // namespace

QWidget* DrawMainWindow(QWidget* parent) {
  auto* window = new QMainWindow(parent);
  Ui::frmOrvalent ui;
  ui.setupUi(window);
  FillToolbar(*window, ui);
  FillStatusBar(*ui.sbrStatus);
  FillNoticeStrip(*ui.noticeStrip, *ui.NoAnswer);
  AddPresetMenu(*window, ui);
  AddFirstSteps(*ui.txtTerm);
  ShowPowerInWords(ui);
  HoldSizes(ui);
  ShareRoom(*window, ui);
  AddFileEntries(ui);
  AddPortEntry(ui);
  AddLoginEntries(ui);
  AddViewMenu(ui);
  PutToolbarInTabOrder(ui);
  new FindKeys(ui);
  new FocusGuide(ui);
  return window;
}

}  // namespace quillmark
