#include "qt/binding/window_registry.h"

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>

#include "qt/binding/config_window.h"
#include "qt/binding/draw_window.h"
#include "qt/binding/main_window.h"
#include "qt/binding/restore_window.h"
#include "ui_frmComparison.h"
#include "ui_frmDLINKOptions.h"
#include "ui_frmDTYPEOptions.h"
#include "ui_frmHelp.h"
#include "ui_frmLogin.h"
#include "ui_frmPreferences.h"
#include "ui_frmProgram.h"
#include "ui_frmProperties.h"
#include "ui_frmRSSI.h"
#include "ui_frmRTUOptions.h"
#include "ui_frmSentSettings.h"
#include "ui_frmSetPass.h"
#include "ui_frmSetup.h"
#include "ui_frmSimpleRptrSetup.h"
#include "ui_frmSimpleXMAP.h"
#include "ui_frmXMAP.h"
#include "ui_frmZoneData.h"
#include "ui_frmZoneQuality.h"

namespace quillmark {

namespace {

constexpr WindowRow windows[] = {
    {
        .Name = "frmOrvalent",
        .Draw = DrawMainWindow,
        .Main = true,
        .TakesFiles = true,
        .Help = "settings-and-access",
        .Size = FirstSize::OfForm,
        .Remembered = true,
        .TakesKeys = Keys::ToForm,
    },
    {
        .Name = "frmSplash",
        .Draw = DrawSplash,
        .Passes = true,
        .TakesKeys = Keys::ToForm,
    },
    {
        .Name = "frmHelp",
        .Draw = DrawDialog<Ui::frmHelp>,
        .BesideModal = true,
        .TakesKeys = Keys::EscapeEnds,
    },
    {
        .Name = "frmPreferences",
        .Draw = DrawDialog<Ui::frmPreferences>,
        .Help = "store-and-files",
        .DefaultButton = "OKButton",
        .EscapeClicks = "CancelButton",
    },
    {
        .Name = "frmProperties",
        .Draw = DrawDialog<Ui::frmProperties>,
        .Help = "serial-port",
        .Stands = Place::OnScreen,
        .DefaultButton = "cmdOK",
        .EscapeClicks = "cmdCancel",
    },
    {
        .Name = "frmDLINKOptions",
        .Draw = DrawDialog<Ui::frmDLINKOptions>,
        .Help = "settings-and-access",
        .DefaultButton = "OKButton",
        .EscapeClicks = "CancelButton",
    },
    {
        .Name = "frmDTYPEOptions",
        .Draw = DrawDialog<Ui::frmDTYPEOptions>,
        .Help = "settings-and-access",
        .DefaultButton = "NodeButton",
        .EscapeClicks = "CancelButton",
    },
    {
        .Name = "frmRTUOptions",
        .Draw = DrawDialog<Ui::frmRTUOptions>,
        .Help = "settings-and-access",
        .DefaultButton = "OKButton",
        .EscapeClicks = "CancelButton",
    },
    {
        .Name = "frmXMAP",
        .Draw = DrawDialog<Ui::frmXMAP>,
        .Help = "settings-and-access",
        .DefaultButton = "ProgramButton",
        .EscapeClicks = "CloseButton",
    },
    {
        .Name = "frmSimpleXMAP",
        .Draw = DrawDialog<Ui::frmSimpleXMAP>,
        .Help = "configuration-files",
        .DefaultButton = "cmdSet",
        .EscapeClicks = "cmdCancel",
    },
    {
        .Name = "frmSimpleRptrSetup",
        .Draw = DrawDialog<Ui::frmSimpleRptrSetup>,
        .Help = "configuration-files",
        .Stands = Place::BesideOwner,
        .TakesKeys = Keys::EscapeEnds,
    },
    {
        .Name = "frmLogin",
        .Draw = DrawDialog<Ui::frmLogin>,
        .Help = "settings-and-access",
        .DefaultButton = "cmdOK",
        .EscapeClicks = "cmdCancel",
    },
    {
        .Name = "frmSetPass",
        .Draw = DrawDialog<Ui::frmSetPass>,
        .Help = "settings-and-access",
        .DefaultButton = "OKButton",
        .EscapeClicks = "CancelButton",
    },
    {
        .Name = "frmSetup",
        .Draw = DrawDialog<Ui::frmSetup>,
        .Help = "settings-and-access",
        .DefaultButton = "ExitButton",
    },
    {
        .Name = "frmProgram",
        .Draw = DrawDialog<Ui::frmProgram>,
        .Help = "firmware-upgrade",
        .DefaultButton = "cmdNo",
        .EscapeClicks = "Command1",
    },
    {
        .Name = "frmRSSI",
        .Draw = DrawDialog<Ui::frmRSSI>,
        .Paints = true,
        .Help = "diagnostics",
        .DefaultButton = "Command1",
        .EscapeClicks = "Command1",
    },
    {
        .Name = "frmZoneData",
        .Draw = DrawDialog<Ui::frmZoneData>,
        .Paints = true,
        .Help = "diagnostics",
        .Remembered = true,
        .EscapeClicks = "mnuExitScreen",
    },
    {
        .Name = "frmZoneQuality",
        .Draw = DrawDialog<Ui::frmZoneQuality>,
        .Paints = true,
        .Help = "diagnostics",
        .Remembered = true,
        .EscapeClicks = "mnuExitScreen",
    },
    {
        .Name = "frmViewer",
        .Draw = DrawViewer,
        .Help = "configuration-files",
        .Remembered = true,
        .DefaultButton = "cmdClose",
        .EscapeClicks = "cmdClose",
    },
    {
        .Name = "frmConfigFile",
        .Draw = DrawConfigWindow,
        .TakesFiles = true,
        .Help = "without-a-radio",
        .Remembered = true,
        .EscapeClicks = "CloseButton",
    },
    {
        .Name = "frmSentSettings",
        .Draw = DrawDialog<Ui::frmSentSettings>,
        .Help = "settings-and-access",
        .DefaultButton = "cmdClose",
        .EscapeClicks = "cmdClose",
    },
    {
        .Name = "frmHistory",
        .Draw = DrawHistory,
        .Help = "radio-history",
        .Remembered = true,
        .EscapeClicks = "cmdClose",
    },
    {
        .Name = "frmComparison",
        .Draw = DrawDialog<Ui::frmComparison>,
        .Help = "radio-history",
        .Remembered = true,
        .DefaultButton = "cmdClose",
        .EscapeClicks = "cmdClose",
    },
    {
        .Name = "frmRestore",
        .Draw = DrawRestoreWindow,
        .Help = "store-and-restore",
        .Remembered = true,
        .EscapeClicks = "CloseButton",
    },
};

constexpr bool EachStandsOnce() {
  return std::ranges::all_of(windows, [](const WindowRow& row) {
    return std::ranges::count(windows, row.Name, &WindowRow::Name) == 1;
  });
}
static_assert(EachStandsOnce());
static_assert(std::ranges::count(windows, true, &WindowRow::Main) == 1);
// F1 does something in all others.
static_assert(std::ranges::all_of(windows, [](const WindowRow& row) {
  return row.Help.empty() == (row.Passes || row.BesideModal);
}));

QString ToName(std::string_view name) {
  return QLatin1String(name.data(), static_cast<qsizetype>(name.size()));
}

template <class Kind>
Kind* Find(const QWidget& window, std::string_view name) {
  return window.findChild<Kind*>(ToName(name));
}

[[noreturn]] void TellMissing(const WindowRow& row, std::string_view name) {
  throw std::logic_error("The window " + std::string(row.Name) + " has no " + std::string(name));
}

void SetDefaultButton(const WindowRow& row, const QWidget& window) {
  if (row.DefaultButton.empty()) return;
  auto* button = Find<QPushButton>(window, row.DefaultButton);
  if (button == nullptr) TellMissing(row, row.DefaultButton);
  button->setDefault(true);
}

void CheckEscape(const WindowRow& row, const QWidget& window) {
  if (row.EscapeClicks.empty() || Find<QPushButton>(window, row.EscapeClicks) != nullptr) return;
  if (Find<QAction>(window, row.EscapeClicks) == nullptr) TellMissing(row, row.EscapeClicks);
}

// The toolkit leaves some of its own buttons without a name.
void NameToolkitButtons(const QWidget& window) {
  for (QToolButton* button : window.findChildren<QToolButton*>()) {
    const bool more = button->objectName() == QLatin1String("qt_toolbar_ext_button");
    const bool clears = qobject_cast<QLineEdit*>(button->parent()) != nullptr;
    if (more) button->setAccessibleName(QObject::tr("More tools"));
    if (clears) button->setAccessibleName(QObject::tr("Clear"));
  }
}

}  // namespace

std::span<const WindowRow> AllWindows() { return windows; }

const WindowRow* WindowNamed(std::string_view name) {
  const auto* const found = std::ranges::find(windows, name, &WindowRow::Name);
  return found == std::end(windows) ? nullptr : found;
}

const WindowRow* RowAbove(const QWidget& window) {
  for (const QWidget* at = &window; at != nullptr; at = at->parentWidget()) {
    if (const WindowRow* row = WindowNamed(at->objectName().toStdString())) return row;
  }
  return nullptr;
}

QWidget* MakeWindow(const WindowRow& row, QWidget* parent) {
  std::unique_ptr<QWidget> window(row.Draw(parent));
  SetDefaultButton(row, *window);
  CheckEscape(row, *window);
  NameToolkitButtons(*window);
  return window.release();
}

bool ClickEscape(const WindowRow& row, const QWidget& window) {
  if (row.EscapeClicks.empty()) return false;
  if (auto* button = Find<QPushButton>(window, row.EscapeClicks)) {
    button->click();
  } else if (auto* entry = Find<QAction>(window, row.EscapeClicks)) {
    entry->trigger();
  }
  return true;
}

}  // namespace quillmark
