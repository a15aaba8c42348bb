#include "firmware/loader_entry.h"

#include <memory>

#include "conversation/wake.h"
#include "firmware/frmProgram.h"
#include "platform/utilities.h"
#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view question = "ARE YOU SURE?";
constexpr Duration longestAnswer = Seconds(3);
constexpr int erasingSteps = 10;

}  // namespace

LoaderEntry::LoaderEntry(Platform& machine, Session& shared, frmOrvalent& window, Connection& link,
                         Conversation& conversation)
    : platform(machine), session(shared), main(window), connection(link), radio(conversation) {}

bool AtLoaderPrompt(const Conversation& radio) { return radio.LastPrompt() == PromptKind::Loader; }

bool LoaderEntry::Enter(const std::string& newVersion, const std::string& note) {
  radio.CommandExchange("PROGRAM", question, longestAnswer);
  // A radio that was in its loader all the time does not ask.
  if (!Contains(session.RxBuffer, question)) return true;
  if (!UserConfirms(newVersion, note)) {
    radio.Say("NO");
    session.StopTransfer();
    return false;
  }
  radio.Say("YES");
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

bool LoaderEntry::UserConfirms(const std::string& newVersion, const std::string& note) {
  const Answer answer = platform.Dialogs.Message(
      {.Text = "Ready to erase the current firmware, version " + session.InstalledFirmwareVersion +
               ", and install version " + newVersion +
               ".\r\r\t\tAre you sure you wish to continue?",
       .Title = "Erase Current Firmware?",
       .Choice = Buttons::YesNo,
       .Details = note,
       .Irreversible = true});
  return answer == Answer::Yes;
}

// The radio says nothing while it erases; the bar follows the clock.
void LoaderEntry::ShowErasing() {
  const auto progress = std::make_shared<frmProgram>(platform, session);
  const AtEnd stopped([&progress] { progress->Stop(); });
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
  constexpr int lastBurst = 3;
  radio.Clear();
  // One mark for each round.
  const auto mark = [this](int, int burst) {
    if (burst == lastBurst) main.txtTerm.Text = main.txtTerm.Text() + ">";
  };
  return WakeRadio(platform, radio,
                   {.Pump = [this] { platform.Events.Pump(); },
                    .Cancelled = [] { return false; },
                    .Sent = mark}) == WakeEnd::Awake;
}

}  // namespace quillmark
