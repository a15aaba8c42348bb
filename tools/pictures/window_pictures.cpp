#include "pictures/window_pictures.h"

#include <QDir>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <utility>

#include "config/frmComparison.h"
#include "config/presets/frmViewer.h"
#include "firmware/frmProgram.h"
#include "pictures/report.h"
#include "pictures/sample_copies.h"
#include "qt/binding/qt_windows.h"
#include "qt/binding/window_registry.h"
#include "qt/dialogs/message_window.h"
#include "runs/frmSentSettings.h"
#include "runs/outcomes.h"
#include "settings/frmSimpleRptrSetup.h"
#include "settings/frmSimpleXMAP.h"
#include "start/console.h"

namespace quillmark {

namespace {

// Long enough for layouts, and for the terminal's batches of text.
constexpr Duration settleTime = Milliseconds(60);

// The status bar has come to rest when the timer that clears it is off.
constexpr Duration longestStatus = Seconds(3);

constexpr const char* samplePreset =
    "#PresetFile1\r\n#Name:Sub-remote behind the north ridge\r\n#PresetCaption:North ridge\r\n"
    "\r\nUNIT 1234\r\nMODE R\r\nPWR 30 dBm\r\nBAUD 9600 8N1\r\nADDR 1000\r\n"
    "XMAP 00000002\r\nXPRI 1\r\n";

// Until the windows that watch the link show what the radio says.
constexpr Duration longestReport = Seconds(5);

constexpr int modalLook = 10;  // ms between looks for a window that is about to open

std::vector<JudgedSetting> SampleOutcomes() {
  return {{.Came = Outcome::Taken, .Name = "OWN", .Sent = "Hill top", .Has = "Hill top"},
          {.Came = Outcome::Taken, .Name = "MODE", .Sent = "R", .Has = "MODE R"},
          {.Came = Outcome::Refused,
           .Name = "PWR",
           .Sent = "45",
           .Has = "PWR 30 dBm",
           .Refusal = "INVALID ENTRY"},
          {.Came = Outcome::Taken, .Name = "XMAP", .Sent = "00000002"},
          {.Came = Outcome::Taken, .Name = "DLINK", .Sent = "9600 OFF", .Has = "DLINK 9600 (OFF)"}};
}

void Click(Form& form, const std::string& name) {
  if (auto* control = dynamic_cast<Clickable*>(form.Find(name))) control->Click();
}

void Type(Form& form, const char* name, const char* text) {
  if (auto* box = dynamic_cast<TextBox*>(form.Find(name))) box->UserEdit(text);
}

// As a user does who changes nothing.
void Leave(Form& form) {
  const WindowRow* row = WindowNamed(form.Name());
  if (row != nullptr) Click(form, std::string(row->EscapeClicks));
  if (form.Loaded()) form.UserClose();
}

}  // namespace

WindowPictures::WindowPictures(Console& theConsole, Platform& machine, QtWindows& shown,
                               ReportDialogs& boxes, std::string target)
    : console(theConsole),
      platform(machine),
      windows(shown),
      dialogs(boxes),
      folder(std::move(target)) {}

bool WindowPictures::Take() {
  if (!QDir().mkpath(QString::fromStdString(folder))) return false;
  frmOrvalent& main = console.Main();
  TakeShellWindows();
  main.ButtonAdv.Click();
  TakeBoxes();
  TakeOptionWindows();
  main.ButtonAdv.Click();
  WaitUntil(platform.Events, longestStatus, [&main] { return !main.Timer2.Enabled(); });
  TakeMain();
  TakeDiagnosticWindows();
  TakeAccessWindows();
  TakeConfigurationWindows();
  TakeRestoreWindow();
  TakePrint();
  TakeProgressWindow();
  TellMissing();
  return sound;
}

// A window whose setting the radio lacks does not open, so this is no fault of the run.
void WindowPictures::TellMissing() const {
  for (const WindowRow& row : AllWindows()) {
    const std::string name(row.Name);
    if (pictured.contains(name)) continue;
    std::fprintf(stderr, "quillmark-console: there is no picture of %s\n", name.c_str());
  }
}

void WindowPictures::TakeBoxes() {
  frmOrvalent& main = console.Main();
  TakeBox("box-information", Answer::Ok, [&] { main.At(SettingId::BaudRate).Caption.Click(); });
  TakeBox("box-question", Answer::Cancel, [&] { main.At(SettingId::DeviceType).Click(); });
  TakeBox("box-input", Answer::Cancel, [&] { main.At(SettingId::NetworkAddress).Click(); });
}

void WindowPictures::TakeOptionWindows() {
  frmOrvalent& main = console.Main();
  const auto checkSome = [](Form& form, const std::string& array) {
    for (const int address : {0, 1, 5, 17, 31}) Click(form, array + std::to_string(address));
  };
  TakeModal("frmDLINKOptions", "dlink-options", [&] { main.At(SettingId::DLINK).Click(); });
  TakeModal("frmDTYPEOptions", "dtype-options", [&] { main.At(SettingId::DTYPE).Click(); });
  TakeModal("frmRTUOptions", "rtu-options", [&] { main.At(SettingId::SoftRTU).Click(); });
  TakeModal(
      "frmXMAP", "extension-map", [&] { main.At(SettingId::XMAP).Click(); },
      [&](Form& form) { checkSome(form, "Check1_"); });
  TakeModal(
      "frmSimpleXMAP", "sub-remote-map",
      [&] {
        platform.Windows.ShowModal(std::make_shared<frmSimpleXMAP>(platform, main, console.Talk()),
                                   main);
      },
      [&](Form& form) { checkSome(form, "chkXADDR_"); });
}

void WindowPictures::TakeShellWindows() {
  frmOrvalent& main = console.Main();
  TakeModal("frmProperties", "setup", [&] { main.mnuProperties.Click(); });
  TakeModal("frmPreferences", "preferences", [&] { main.mnuPreferences.Click(); });
  TakeShown("frmSplash", "about", [&] { main.mnuAbout.Click(); });
  TakeShown("frmHelp", "manual", [&] { main.mnuManual.Click(); });
  TakeBox("box-versions", Answer::Cancel, [&] { main.mnuVersions.Click(); });
}

void WindowPictures::TakeAccessWindows() {
  frmOrvalent& main = console.Main();
  const Prepare typeSecret = [](Form& form) { Type(form, "txtPassword", "123"); };
  TakeModal(
      "frmLogin", "login", [&] { main.mnuAccessCode.Click(); }, typeSecret);
  TakeModal(
      "frmLogin", "encryption-code", [&] { main.mnuEncryptCode.Click(); }, typeSecret);
  TakeShown("frmSetPass", "set-password", [&] { main.mnuSetPass.Click(); });
  TakeBox("box-warning", Answer::Yes, [&] { main.mnuSetupMode.Click(); });
  Form* setup = windows.FormNamed("frmSetup");
  if (setup == nullptr) return;
  Picture(*setup, "setup-mode");
  // Only this button ends the radio's setup mode.
  Click(*setup, "ExitButton");
  console.Shared().DropRead();
}

void WindowPictures::TakeConfigurationWindows() {
  frmOrvalent& main = console.Main();
  TakeShown("frmSentSettings", "settings-sent", [&] {
    platform.Windows.Show(std::make_shared<frmSentSettings>("4 of 5 settings taken; refused: PWR",
                                                            TableOf(SampleOutcomes())));
  });
  KeepSampleCopies(platform.Files);
  TakeShown("frmHistory", "radio-history", [&] { main.mnuHistory.Click(); });
  TakeShown("frmComparison", "comparison", [&] {
    platform.Windows.Show(std::make_shared<frmComparison>(
        "11/20/2026 09:14:07, read", "11/23/2026 15:04:05, before a preset", SampleComparison()));
  });
  TakeModal("frmViewer", "preset", [&] {
    const auto viewer = std::make_shared<frmViewer>();
    viewer->Caption = "North ridge";
    viewer->txtViewer.Text = samplePreset;
    platform.Windows.ShowModal(viewer, main);
  });
  TakeConfigurationFile();
  TakeShown("frmSimpleRptrSetup", "repeater-setup",
            [&] { platform.Windows.Show(std::make_shared<frmSimpleRptrSetup>()); });
  TakePresetMenu();
}

// As half-way through a firmware file; nothing is sent.
void WindowPictures::TakeProgressWindow() {
  const auto progress = std::make_shared<frmProgram>(platform, console.Shared());
  progress->Caption = "Downloading Firmware to the radio...";
  progress->Label1.Text = "Transmitting S28 File - quillmark-3.2.1.s28";
  constexpr std::int64_t length = 524'288;
  constexpr std::int64_t sent = 219'648;
  progress->ProgressBar1.Value = static_cast<int>(100 * sent / length);
  progress->ShowBytes(sent, length, Milliseconds(sent * 10'000 / 115'200));
  TakeShown("frmProgram", "firmware-upgrade", [&] { progress->Show(); });
}

void WindowPictures::TakeDiagnosticWindows() {
  frmOrvalent& main = console.Main();
  const auto awaitOther = [this](Form& form, const char* control, const char* text) {
    const auto& shown = dynamic_cast<const Clickable&>(*form.Find(control));
    WaitUntil(platform.Events, longestReport, [&] { return shown.Text() != text; });
  };
  TakeModal(
      "frmRSSI", "signal-level", [&] { main.ButtonRSSI.Click(); },
      [&](Form& form) { awaitOther(form, "Text1", "n/a"); });
  TakeModal(
      "frmZoneData", "zone-data", [&] { main.ButtonZoneData.Click(); },
      [&](Form& zoneData) {
        awaitOther(zoneData, "zoneTXCount_0", "0");
        TakeModal(
            "frmZoneQuality", "zone-quality", [&] { Click(zoneData, "mnuShowZoneQuality"); },
            [&](Form& form) { awaitOther(form, "percentUsable_0", "0"); });
      });
}

// The picture is taken from inside the window's own loop.
void WindowPictures::TakeModal(const char* formName, const std::string& name,
                               const std::function<void()>& open, const Prepare& prepare) {
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &look, [&] {
    Form* form = windows.FormNamed(formName);
    if (form == nullptr) return;
    look.stop();
    platform.Events.Deliver([&] {
      if (prepare) prepare(*form);
      Picture(*form, name);
      Leave(*form);
    });
  });
  look.start(modalLook);
  open();
  // Nothing was programmed, so that no read is needed.
  console.Shared().DropRead();
}

void WindowPictures::TakeShown(const char* formName, const std::string& name,
                               const std::function<void()>& open) {
  open();
  Form* form = windows.FormNamed(formName);
  if (form == nullptr) return;
  Picture(*form, name);
  Leave(*form);
  console.Shared().DropRead();
}

void WindowPictures::TakeBox(const std::string& name, Answer answer,
                             const std::function<void()>& open) {
  QWidget* owner = windows.WindowOf(console.Main());
  dialogs.OnMessage = [&](const MessageBox& box) {
    MessageWindow window(box, owner);
    Picture(window, name);
    return answer;
  };
  dialogs.OnInput = [&](const InputBox& box) {
    InputWindow window(box, owner);
    Picture(window, name);
  };
  open();
  dialogs.OnMessage = nullptr;
  dialogs.OnInput = nullptr;
}

void WindowPictures::Picture(const Form& form, const std::string& name) {
  QWidget* window = windows.WindowOf(form);
  if (window == nullptr) return;
  Picture(*window, name);
  pictured.insert(form.Name());
}

void WindowPictures::Picture(QWidget& window, const std::string& name) {
  window.show();
  window.activateWindow();
  Settle();
  Save(window.grab(), name);
}

void WindowPictures::Settle() {
  WaitUntil(platform.Events, settleTime, [] { return false; });
}

std::string WindowPictures::FileOf(const std::string& name) const { return folder + "/" + name; }

void WindowPictures::Save(const QPixmap& picture, const std::string& name) {
  const QString file = QString::fromStdString(FileOf(name + ".png"));
  if (picture.save(file)) return;
  std::fprintf(stderr, "quillmark-console: %s could not be written\n", file.toUtf8().constData());
  sound = false;
}

}  // namespace quillmark
