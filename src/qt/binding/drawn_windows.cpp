// The windows as they are drawn in forms/, and what a form cannot say of them.

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QProgressBar>
#include <QShortcut>
#include <QStatusBar>

#include "qt/binding/qt_windows.h"
#include "qt/binding/restore_window.h"
#include "ui_frmDLINKOptions.h"
#include "ui_frmDTYPEOptions.h"
#include "ui_frmLogin.h"
#include "ui_frmOrvalent.h"
#include "ui_frmPreferences.h"
#include "ui_frmProgram.h"
#include "ui_frmProperties.h"
#include "ui_frmRSSI.h"
#include "ui_frmRTUOptions.h"
#include "ui_frmSetPass.h"
#include "ui_frmSetup.h"
#include "ui_frmSimpleRptrSetup.h"
#include "ui_frmSimpleXMAP.h"
#include "ui_frmSplash.h"
#include "ui_frmViewer.h"
#include "ui_frmXMAP.h"
#include "ui_frmZoneData.h"
#include "ui_frmZoneQuality.h"

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

// A toolbar and a status bar cannot be filled in a form, nor can a menu without a title in the bar.
void FinishMain(QMainWindow& window, Ui::frmOrvalent& ui) {
  auto* gap = new QWidget(ui.tbrToolBar);
  gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  ui.tbrToolBar->addWidget(gap);
  ui.tbrToolBar->addWidget(ui.viewPanel);
  ui.tbrToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
  window.setContextMenuPolicy(Qt::NoContextMenu);

  ui.sbrStatus->addWidget(MakePanel("pnl_Status", *ui.sbrStatus), 3);
  ui.sbrStatus->addWidget(MakePanel("pnl_Settings", *ui.sbrStatus), 2);
  ui.sbrStatus->addWidget(MakePanel("pnl_ConnectTime", *ui.sbrStatus), 1);
  ui.sbrStatus->addPermanentWidget(MakeRunBar(*ui.sbrStatus));

  auto* presets = new QMenu(&window);
  presets->setObjectName(QStringLiteral("mnuPreset"));
  presets->addActions(
      {ui.mnuPresetView, ui.mnuPresetDelete, ui.mnuPresetRename, ui.mnuPresetEditDesc});

  QObject::connect(
      ui.sldPwr, &QSlider::valueChanged, ui.sldPwrValue,
      [label = ui.sldPwrValue](int dBm) { label->setText(QObject::tr("%1 dBm").arg(dBm)); });

  // The lower half keeps its size, whichever view it shows: the tasks need the greater height, the
  // tabs the greater width.
  ui.lowerHalf->setMinimumHeight(ui.frQuick->sizeHint().height());
  ui.viewStack->setMinimumWidth(window.fontMetrics().averageCharWidth() * tabsWidth);
  ui.tbrToolBar->setMinimumWidth(ui.tbrToolBar->sizeHint().width());
  for (QPushButton* help : {ui.cmdRptHelp1, ui.cmdRptHelp2}) {
    help->setFixedWidth(help->fontMetrics().height() * 2);
  }

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

template <class Window, class Drawn>
Window* Draw(QWidget* parent, Drawn& ui) {
  auto* window = new Window(parent);
  ui.setupUi(window);
  return window;
}

QWidget* MakeMain(QWidget* parent) {
  Ui::frmOrvalent ui;
  auto* window = Draw<QMainWindow>(parent, ui);
  FinishMain(*window, ui);
  return window;
}

QWidget* MakeSplash(QWidget* parent) {
  Ui::frmSplash ui;
  auto* window = Draw<QWidget>(parent, ui);
  window->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  const int size = window->fontMetrics().height() * 5;
  ui.picture->setPixmap(window->windowIcon().pixmap(size));
  return window;
}

// A form can't measure in characters: its property "widthInCharacters" is a widget's least width.
template <class Drawn>
QWidget* MakeDialog(QWidget* parent) {
  Drawn ui;
  auto* window = Draw<QDialog>(parent, ui);
  for (QWidget* widget : window->template findChildren<QWidget*>()) {
    const int characters = widget->property("widthInCharacters").toInt();
    if (characters > 0) {
      widget->setMinimumWidth(widget->fontMetrics().averageCharWidth() * characters);
    }
  }
  return window;
}

QWidget* MakeViewer(QWidget* parent) {
  Ui::frmViewer ui;
  auto* window = Draw<QDialog>(parent, ui);
  ui.findBar->Serve(*ui.txtViewer, *window);
  return window;
}

struct Row {
  const char* Form;
  QWidget* (*Make)(QWidget* parent);
};

constexpr Row rows[] = {
    {"frmOrvalent", MakeMain},
    {"frmSplash", MakeSplash},
    {"frmProperties", MakeDialog<Ui::frmProperties>},
    {"frmDLINKOptions", MakeDialog<Ui::frmDLINKOptions>},
    {"frmDTYPEOptions", MakeDialog<Ui::frmDTYPEOptions>},
    {"frmRTUOptions", MakeDialog<Ui::frmRTUOptions>},
    {"frmXMAP", MakeDialog<Ui::frmXMAP>},
    {"frmSimpleXMAP", MakeDialog<Ui::frmSimpleXMAP>},
    {"frmLogin", MakeDialog<Ui::frmLogin>},
    {"frmSetPass", MakeDialog<Ui::frmSetPass>},
    {"frmSetup", MakeDialog<Ui::frmSetup>},
    {"frmPreferences", MakeDialog<Ui::frmPreferences>},
    {"frmProgram", MakeDialog<Ui::frmProgram>},
    {"frmRestore", MakeRestoreWindow},
    {"frmViewer", MakeViewer},
    {"frmSimpleRptrSetup", MakeDialog<Ui::frmSimpleRptrSetup>},
    {"frmProgram", MakeDialog<Ui::frmProgram>},
    {"frmRSSI", MakeDialog<Ui::frmRSSI>},
    {"frmZoneData", MakeDialog<Ui::frmZoneData>},
    {"frmZoneQuality", MakeDialog<Ui::frmZoneQuality>},
};

}  // namespace

QWidget* MakeWindow(const std::string& formName, QWidget* parent) {
  for (const Row& row : rows) {
    if (formName == row.Form) return row.Make(parent);
  }
  return nullptr;
}

}  // namespace quillmark
