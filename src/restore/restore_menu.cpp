#include "restore/restore_menu.h"

#include "link/serial_failure.h"
#include "radio/login_probe.h"
#include "session/chosen_files.h"
#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration probeTime = Milliseconds(300);

}  // namespace

RestoreMenu::RestoreMenu(Platform& machine, Session& shared, frmOrvalent& mainWindow,
                         Connection& radioLink, MainTimer& ticks, Conversation& conversation)
    : platform(machine),
      session(shared),
      main(mainWindow),
      connection(radioLink),
      mainTimer(ticks),
      radio(conversation) {}

RestoreMenu::~RestoreMenu() {
  platform.MSComm2.OnComm = nullptr;
  if (!platform.Events.Quitting()) CloseWindow();
}

void RestoreMenu::Wire() {
  platform.MSComm2.OnComm = [this] {
    if (const auto shown = window.lock()) shown->MSComm2_OnComm();
  };
  main.mnuConfigRestore.OnClick = [this] { OpenWhenFree({}); };
  mainTimer.CloseRestoreWindow = [this] { CloseWindow(); };
}

void RestoreMenu::Compare(const std::filesystem::path& file, bool tickDiffering) {
  OpenWhenFree(file, tickDiffering);
}

void RestoreMenu::OpenWhenFree(const std::filesystem::path& file, bool tickDiffering) {
  if (probing || (MayStart && !MayStart())) return;
  radio.Turns.WhenFree(main.mnuConfigRestore, [this, file, tickDiffering] {
    if (!MayStart || MayStart()) Open(file, tickDiffering);
  });
}

void RestoreMenu::Open(const std::filesystem::path& file, bool tickDiffering) {
  if (const auto shown = window.lock(); shown && shown->Loaded()) {
    platform.Dialogs.Message({"The window is already open.", "Error", Icon::Exclamation});
    return;
  }
  WithLinkErrors(platform.Dialogs, [&] {
    if (platform.MSComm1.PortOpen() && !MayBeOpened()) {
      session.AskForRead();
      return;
    }
    ShowWindow(file, tickDiffering);
  });
}

bool RestoreMenu::MayBeOpened() {
  const auto underWay = Raised(probing);
  const LineTurns::Turn turn(radio.Turns);
  const int began = radio.Epoch();
  const LoginProbe probe{.Word = "addr", .Prefix = "", .Wait = probeTime, .Opening = "ADDR"};
  Answer answer = Answer::Yes;
  const LoginState state = ProbeLogin(radio, probe, [&](LoginState found) {
    main.txtTerm.Text = "";
    main.ShowRefusesChanges(found == LoginState::Denied);
    if (found == LoginState::Denied) answer = AskWhetherToOpen();
  });
  if (state != LoginState::Unknown) main.txtTerm.Text = "";
  // The user has let the link go meanwhile.
  return answer == Answer::Yes && radio.Epoch() == began;
}

Answer RestoreMenu::AskWhetherToOpen() {
  return platform.Dialogs.Message(
      {"Warning! You are not currently logged in, and therefore will not be able to reconfigure "
       "the radio.\rYou will, however, be able to save a configuration file based off of the "
       "current settings.\r\rWould you like to continue?",
       "Warning!", Icon::Exclamation, Buttons::YesNo});
}

void RestoreMenu::ShowWindow(const std::filesystem::path& file, bool tickDiffering) {
  // The window is the connection now, and its failures are told to the timer.
  main.ConnectOnLaunchPending = false;
  main.Timer1.Enabled = true;
  platform.MSComm1.SetPortOpen(false);
  radio.HandOver();
  const auto shown = std::make_shared<frmRestore>(platform, session, main, connection);
  window = shown;
  shown->BeforeOverwrite = BeforeOverwrite;
  if (!file.empty()) shown->LoadWhenRead(file, tickDiffering);
  platform.Windows.ShowModal(shown, main);
  main.ShowRecent(RecentConfigurations(platform.Preferences));
}

void RestoreMenu::CloseWindow() {
  if (const auto shown = window.lock()) shown->Unload();
}

void RestoreMenu::EndProgram() {
  if (const auto shown = window.lock()) shown->EndProgram();
}

}  // namespace quillmark
