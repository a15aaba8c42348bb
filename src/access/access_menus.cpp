#include "access/access_menus.h"

#include "link/echo.h"
#include "link/serial_failure.h"
#include "radio/command_exchange.h"
#include "text/text.h"

namespace quillmark {

AccessMenus::AccessMenus(Platform& machine, Session& shared, frmOrvalent& window, MainTimer& timer)
    : platform(machine), session(shared), main(window), ticks(timer) {}

AccessMenus::~AccessMenus() = default;

void AccessMenus::Wire() {
  const auto wire = [this](Clickable& entry, void (AccessMenus::*act)()) {
    // A read that is running would have its replies mixed with what these windows say.
    entry.OnClick = [this, &entry, act] {
      ticks.WhenFree(entry, [this, act] {
        WithLinkErrors(platform.Dialogs, [this, act] { (this->*act)(); });
      });
    };
  };
  wire(main.tbr_Login, &AccessMenus::mnuAccessCode_Click);
  wire(main.mnuAccessCode, &AccessMenus::mnuAccessCode_Click);
  wire(main.mnuEncryptCode, &AccessMenus::mnuEncryptCode_Click);
  wire(main.mnuSetPass, &AccessMenus::mnuSetPass_Click);
  wire(main.mnuSetupMode, &AccessMenus::mnuSetupMode_Click);
}

bool AccessMenus::PasswordWindowOpen() const { return setPass && setPass->Loaded(); }

std::string AccessMenus::OpenWindow() const {
  const bool passwords = PasswordWindowOpen();
  const bool benchTest = setup && setup->Loaded();
  if (!passwords && !benchTest) return {};
  return std::string("Please close the window \"") +
         (passwords ? setPass->Caption() : setup->Caption()) + "\" first.";
}

bool AccessMenus::PortIsOpen() { return quillmark::PortIsOpen(platform.Dialogs, platform.MSComm1); }

void AccessMenus::ShowLogin(frmLogin::Command command) {
  platform.Windows.ShowModal(std::make_shared<frmLogin>(platform, session, main, command), main);
}

void AccessMenus::mnuAccessCode_Click() {
  if (PortIsOpen()) ShowLogin(frmLogin::Command::Pass);
}

void AccessMenus::mnuEncryptCode_Click() {
  if (!PortIsOpen()) return;
  ++main.SecretWindows;
  struct Released {
    int& windows;
    ~Released() { --windows; }
  } released{main.SecretWindows};
  const bool denied = RadioDenies();
  main.txtTerm.Text = "";
  if (denied) {
    platform.Dialogs.Message(
        {"Error! You are not currently logged in, and therefore will not be able "
         "to enter in an encryption code.",
         "Error!", Icon::Critical});
  }
  SwitchEcho(platform.MSComm1, main, true);
  if (!denied) ShowLogin(frmLogin::Command::Code);
}

// Programs the network address with what it holds already.
bool AccessMenus::RadioDenies() {
  SwitchEcho(platform.MSComm1, main, false);
  session.RxBuffer = " ";
  platform.MSComm1.Output(main.NetworkAddress.Text() + "\r");
  WaitUntil(platform.Events, Milliseconds(300), [this] {
    return Contains(session.RxBuffer, ">") && Contains(session.RxBuffer, "ACCESS DENIED") &&
           Contains(session.RxBuffer, "PROGRAMMED OK");
  });
  return Contains(session.RxBuffer, "DENIED");
}

void AccessMenus::mnuSetPass_Click() {
  if (setPass && setPass->Loaded()) {
    setPass->OKButton.SetFocus();
    return;
  }
  setPass = std::make_shared<frmSetPass>(platform, session, main);
  platform.Windows.Show(setPass);
}

void AccessMenus::mnuSetupMode_Click() {
  if (enteringSetup || !PortIsOpen()) return;
  const Answer answer = platform.Dialogs.Message(
      {"Setup mode is intended for bench testing only.\r\n\r\nAre you sure you want to continue?",
       "Warning", Icon::Exclamation, Buttons::YesNo});
  if (answer == Answer::Yes) EnterSetupMode();
}

void AccessMenus::EnterSetupMode() {
  enteringSetup = true;
  struct Entered {
    bool& flag;
    ~Entered() { flag = false; }
  } entered{enteringSetup};
  session.InSetupMode = true;
  CommandExchange(session, platform.MSComm1, platform.Events, "setup", "setup", Seconds(3));
  if (!platform.MSComm1.PortOpen()) {
    session.InSetupMode = false;
    return;
  }
  if (Contains(session.RxBuffer, "DENIED")) {
    platform.Dialogs.Message(
        {"You must be logged in before entering setup mode.", "Error!", Icon::Exclamation});
    return;
  }
  if (setup && setup->Loaded()) {
    setup->ExitButton.SetFocus();
    return;
  }
  setup = std::make_shared<frmSetup>(platform, session, main);
  platform.Windows.Show(setup);
}

}  // namespace quillmark
