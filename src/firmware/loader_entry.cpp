#include "firmware/loader_entry.h"

#include <memory>

#include "firmware/frmProgram.h"
#include "prefs/utilities.h"
#include "radio/command_exchange.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view question = "ARE YOU SURE?";
constexpr Duration longestAnswer = Seconds(3);
constexpr int erasingSteps = 10;
constexpr int promptAttempts = 30;

}  // namespace

LoaderEntry::LoaderEntry(Platform& machine, Session& shared, frmOrvalent& window, Connection& link)
    : platform(machine), session(shared), main(window), connection(link) {}

bool AtLoaderPrompt(const Session& session) { return EndsWithAnyCase(session.RxBuffer, "LOADER>"); }

bool LoaderEntry::Enter(const std::string& newVersion) {
  CommandExchange(session, platform.MSComm1, platform.Events, "PROGRAM", question, longestAnswer);
  // A radio that was in its loader all the time does not ask.
  if (!Contains(session.RxBuffer, question)) return true;
  if (!UserConfirms(newVersion)) {
    platform.MSComm1.Output("NO\r");
    session.TransferStop = true;
    return false;
  }
  platform.MSComm1.Output("YES\r");
  WaitMilliseconds(platform.Events, 2000);
  ShowErasing();
  if (!RecoverPrompt()) {
    connection.DisconnectRadio();
    main.txtTerm.Text = "Error. Please reconnect.";
    return false;
  }
  platform.Events.Sleep(Milliseconds(1000));
  return true;
}

bool LoaderEntry::UserConfirms(const std::string& newVersion) {
  return platform.Dialogs.Message({"Ready to erase the current firmware, version " +
                                       session.InstalledFirmwareVersion + ", and install version " +
                                       newVersion + ".\r\r\t\tAre you sure you wish to continue?",
                                   "Erase Current Firmware?", Icon::None, Buttons::YesNo, "",
                                   true}) == Answer::Yes;
}

// The radio says nothing while it erases; the bar follows the clock.
void LoaderEntry::ShowErasing() {
  const auto progress = std::make_shared<frmProgram>(platform, session);
  struct Stopped {
    frmProgram& form;
    ~Stopped() { form.Stop(); }
  } stopped{*progress};
  progress->Caption = "Erasing...";
  progress->Command1.Enabled = false;
  progress->Show();
  platform.Events.Sleep(Milliseconds(1000));
  for (int step = 0; step < erasingSteps; ++step) {
    progress->Label1.Text = "Erasing current firmware...";
    progress->ProgressBar1.Value = step * 10;
    platform.Events.Pump();
    platform.Events.Sleep(Milliseconds(500));
  }
}

bool LoaderEntry::RecoverPrompt() {
  session.RxBuffer = "";
  for (int attempt = 0; attempt < promptAttempts; ++attempt) {
    platform.Events.Pump();
    platform.MSComm1.Output("\x1B\r\n");
    platform.Events.Sleep(Milliseconds(static_cast<int>(platform.Random.Next() * 701) + 400));
    for (int burst = 0; burst < 4; ++burst) {
      platform.MSComm1.Output("\r\r");
      platform.Events.Sleep(Milliseconds(100));
    }
    main.txtTerm.Text = main.txtTerm.Text() + ">";
    if (EndsWithAnyCase(session.RxBuffer, ">")) return true;
  }
  return false;
}

}  // namespace quillmark
