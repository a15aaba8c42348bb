#include "restore/restore_menu.h"

#include "link/echo.h"
#include "link/serial_failure.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration probeTime = Milliseconds(300);

}  // namespace

RestoreMenu::RestoreMenu(Platform& machine, Session& shared, frmOrvalent& mainWindow,
                         Connection& radioLink, MainTimer& ticks)
    : platform(machine),
      session(shared),
      main(mainWindow),
      connection(radioLink),
      mainTimer(ticks) {}

RestoreMenu::~RestoreMenu() {
  platform.MSComm2.OnComm = nullptr;
  if (!platform.Events.Quitting()) CloseWindow();
}

void RestoreMenu::Wire() {
  platform.MSComm2.OnComm = [this] {
    if (const auto shown = window.lock()) shown->MSComm2_OnComm();
  };
  main.mnuConfigRestore.OnClick = [this] {
    mainTimer.WhenFree(main.mnuConfigRestore, [this] {
      if (!MayStart || MayStart()) mnuConfigRestore_Click();
    });
  };
  mainTimer.CloseRestoreWindow = [this] { CloseWindow(); };
}

void RestoreMenu::mnuConfigRestore_Click() {
  if (probing) return;
  if (const auto shown = window.lock(); shown && shown->Loaded()) {
    platform.Dialogs.Message({"The window is already open.", "Error", Icon::Exclamation});
    return;
  }
  WithLinkErrors(platform.Dialogs, [this] {
    if (platform.MSComm1.PortOpen() && !ProbeLogin()) {
      session.RefreshRequested = true;
      return;
    }
    ShowWindow();
  });
}

// Programs the network address with what it holds: a radio that wants a login refuses that. The
// echo is off meanwhile, so that it does not show in the terminal.
bool RestoreMenu::ProbeLogin() {
  probing = true;
  ++mainTimer.LineHolders;
  struct Ended {
    RestoreMenu& menu;
    ~Ended() {
      menu.probing = false;
      --menu.mainTimer.LineHolders;
    }
  } ended{*this};
  SwitchEcho(platform.MSComm1, main, false);
  session.RxBuffer = " ";
  platform.MSComm1.Output(main.NetworkAddress.Text() + "\r");
  WaitUntil(platform.Events, probeTime, [this] {
    return Contains(session.RxBuffer, ">") && Contains(session.RxBuffer, "ACCESS DENIED") &&
           Contains(session.RxBuffer, "PROGRAMMED OK");
  });
  main.txtTerm.Text = "";
  Answer answer = Answer::Yes;
  if (Contains(session.RxBuffer, "DENIED")) {
    answer = platform.Dialogs.Message(
        {"Warning! You are not currently logged in, and therefore will not be able to reconfigure "
         "the radio.\rYou will, however, be able to save a configuration file based off of the "
         "current settings.\r\rWould you like to continue?",
         "Warning!", Icon::Exclamation, Buttons::YesNo});
  }
  SwitchEcho(platform.MSComm1, main, true);
  return answer == Answer::Yes;
}

void RestoreMenu::ShowWindow() {
  // The window is the connection now, and its failures are told to the timer.
  main.ConnectOnLaunchPending = false;
  main.Timer1.Enabled = true;
  platform.MSComm1.SetPortOpen(false);
  const auto shown = std::make_shared<frmRestore>(platform, session, main, connection);
  window = shown;
  platform.Windows.ShowModal(shown, main);
}

void RestoreMenu::CloseWindow() {
  if (const auto shown = window.lock()) shown->Unload();
}

void RestoreMenu::EndProgram() {
  if (const auto shown = window.lock()) shown->EndProgram();
}

}  // namespace quillmark
