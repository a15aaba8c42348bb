#include "qt/binding/main_window.h"

#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>

#include "qt/widgets/notice_line.h"
#include "ui_frmOrvalent.h"

namespace quillmark {

namespace {

// Of the view with the tabs, in average characters.
constexpr int tabsWidth = 96;

// Of the progress bar in the status bar, in average characters.
constexpr int runBarWidth = 24;

QLabel* MakePanel(const char* name, QWidget& bar) {
  auto* panel = new QLabel(&bar);
  panel->setObjectName(QLatin1String(name));
  panel->setTextFormat(Qt::PlainText);
  panel->setTextInteractionFlags(Qt::TextSelectableByMouse);
  panel->setIndent(panel->fontMetrics().averageCharWidth());
  return panel;
}

// Keeps its place while it is hidden, so that nothing jumps when it comes and goes.
QProgressBar* MakeRunBar(QWidget& bar) {
  auto* run = new QProgressBar(&bar);
  run->setObjectName(QStringLiteral("barRun"));
  run->setAccessibleName(QObject::tr("Settings done and to do"));
  run->setFormat(QObject::tr("%v of %m"));
  run->setFixedWidth(run->fontMetrics().averageCharWidth() * runBarWidth);
  run->setMaximumHeight(run->fontMetrics().height() + 4);
  QSizePolicy policy = run->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  run->setSizePolicy(policy);
  return run;
}

// A form can hold neither a spacer nor another widget in a toolbar.
void FillToolbar(QMainWindow& window, const Ui::frmOrvalent& ui) {
  auto* gap = new QWidget(ui.tbrToolBar);
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  ui.tbrToolBar->addWidget(gap);
  ui.tbrToolBar->addWidget(ui.viewPanel);
  ui.tbrToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
  window.setContextMenuPolicy(Qt::NoContextMenu);
}

// One line high even while no notice stands, so that nothing jumps when one comes.
void HoldNoticeStrip(QWidget& strip, const NoticeLine& line) {
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

// The lower half keeps its size, whichever view it shows: the tasks need the greater height, the
// tabs the greater width.
void HoldSizes(const QMainWindow& window, const Ui::frmOrvalent& ui) {
  ui.lowerHalf->setMinimumHeight(ui.frQuick->sizeHint().height());
  ui.viewStack->setMinimumWidth(window.fontMetrics().averageCharWidth() * tabsWidth);
  ui.tbrToolBar->setMinimumWidth(ui.tbrToolBar->sizeHint().width());
  for (QPushButton* help : {ui.cmdRptHelp1, ui.cmdRptHelp2}) {
    help->setFixedWidth(help->fontMetrics().height() * 2);
  }
}

void AddKeys(QMainWindow& window, const Ui::frmOrvalent& ui) {
  // A key that clicks a button.
  struct Key {
    const char* Sequence;
    QPushButton* Button;
  };
  for (const Key& key : {Key{"F5", ui.ButtonRefresh}, Key{"F9", ui.ButtonAdv}}) {
    const QKeySequence sequence(QLatin1String(key.Sequence));
    QObject::connect(new QShortcut(sequence, &window), &QShortcut::activated, key.Button,
                     &QAbstractButton::click);
  }
}

}  // namespace

QWidget* DrawMainWindow(QWidget* parent) {
  auto* window = new QMainWindow(parent);
  Ui::frmOrvalent ui;
  ui.setupUi(window);
  FillToolbar(*window, ui);
  FillStatusBar(*ui.sbrStatus);
  HoldNoticeStrip(*ui.noticeStrip, *ui.NoAnswer);
  AddPresetMenu(*window, ui);
  ShowPowerInWords(ui);
  HoldSizes(*window, ui);
  AddKeys(*window, ui);
  return window;
}

}  // namespace quillmark
