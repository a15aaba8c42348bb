#include "access/access_menus.h"

#include "link/serial_failure.h"
#include "radio/login_probe.h"
#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

AccessMenus::AccessMenus(Platform& machine, Session& shared, frmOrvalent& window,
                         Conversation& conversation)
    : platform(machine), session(shared), main(window), radio(conversation) {}

AccessMenus::~AccessMenus() { main.OnTransmitter = nullptr; }

void AccessMenus::Wire() {
  const auto wire = [this](Clickable& entry, void (AccessMenus::*act)()) {
    // These windows talk to the radio while they are open, so they wait for their turn.
    entry.OnClick = [this, &entry, act] {
      radio.Turns.WhenFree(entry, [this, act] {
        WithLinkErrors(platform.Dialogs, [this, act] { (this->*act)(); });
      });
    };
  };
  wire(main.tbr_Login, &AccessMenus::mnuAccessCode_Click);
  wire(main.mnuAccessCode, &AccessMenus::mnuAccessCode_Click);
  wire(main.mnuEncryptCode, &AccessMenus::mnuEncryptCode_Click);
  main.mnuSetPass.OnClick = [this] { mnuSetPass_Click(); };
  main.mnuSetupMode.OnClick = [this] { mnuSetupMode_Click(); };
  main.OnTransmitter = [this] { ShowTransmitter(); };
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
  platform.Windows.ShowModal(std::make_shared<frmLogin>(platform, main, radio, command), main);
}

void AccessMenus::mnuAccessCode_Click() {
  if (PortIsOpen()) ShowLogin(frmLogin::Command::Pass);
}

void AccessMenus::mnuEncryptCode_Click() {
  if (!PortIsOpen()) return;
  bool allowed = false;
  {
    const LineTurns::Turn turn(radio.Turns);
    allowed = RadioTakesChanges();
  }
  if (allowed) ShowLogin(frmLogin::Command::Code);
}

bool AccessMenus::RadioTakesChanges() {
  const LoginProbe probe{
      .Word = "addr", .Prefix = "", .Wait = Milliseconds(300), .Opening = "ADDR"};
  const int began = radio.Epoch();
  const LoginState state = ProbeLogin(radio, probe, [this](LoginState found) {
    main.txtTerm.Text = "";
    main.ShowRefusesChanges(found == LoginState::Denied);
    if (found != LoginState::Denied) return;
    platform.Dialogs.Message(
        {"Error! You are not currently logged in, and therefore will not be able "
         "to enter in an encryption code.",
         "Error!", Icon::Critical});
  });
  if (state != LoginState::Unknown) main.txtTerm.Text = "";
  return state != LoginState::Denied && radio.Open() && radio.Epoch() == began;
}

void AccessMenus::mnuSetPass_Click() {
  if (setPass && setPass->Loaded()) {
    setPass->OKButton.SetFocus();
    return;
  }
  radio.Turns.WhenFree(main.mnuSetPass, [this] {
    setPass = std::make_shared<frmSetPass>(platform, session, main, radio);
    platform.Windows.Show(setPass);
  });
}

void AccessMenus::mnuSetupMode_Click() {
  if (enteringSetup || !PortIsOpen()) return;
  const Answer answer = platform.Dialogs.Message(
      {"Setup mode is intended for bench testing only.\r\n\r\nAre you sure you want to continue?",
       "Warning", Icon::Exclamation, Buttons::YesNo});
  if (answer != Answer::Yes) return;
  radio.Turns.WhenFree(main.mnuSetupMode,
                       [this] { WithLinkErrors(platform.Dialogs, [this] { EnterSetupMode(); }); });
}

void AccessMenus::EnterSetupMode() {
  const auto underWay = Raised(enteringSetup);
  const LineTurns::Turn turn(radio.Turns);
  session.InSetupMode = true;
  radio.CommandExchange("setup", "setup", Seconds(3));
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
  setup = std::make_shared<frmSetup>(platform, session, main, radio);
  ShowTransmitter();
  platform.Windows.Show(setup);
}

void AccessMenus::ShowTransmitter() {
  using Transmitter = LinkState::Transmitter;
  const bool off = main.TransmitterIs == Transmitter::Off;
  const bool sure = main.TransmitterIs == Transmitter::Keyed;
  const std::string sentence =
      sure ? "The transmitter is keyed." : "The transmitter may still be keyed.";
  if (off) {
    main.Transmitting.Drop();
  } else {
    main.Transmitting.Tell(sentence);
  }
  const std::string ahead = off ? "" : sentence + " ";
  main.imgConnected.ToolTip = ahead + "Click to disconnect...";
  main.imgNotConnected.ToolTip = ahead + "Click to connect...";
  for (Lamp* lamp : {&main.imgConnected, &main.imgNotConnected}) lamp->Warns = !off;
  // The window is narrow: what matters comes first.
  const std::string mark = sure ? "KEYED - " : "MAY BE KEYED - ";
  if (setup) setup->Caption = (off ? "" : mark) + "Setup Mode";
}

}  // namespace quillmark
