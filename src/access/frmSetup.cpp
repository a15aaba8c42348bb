#include "access/frmSetup.h"

#include <utility>

#include "link/serial_failure.h"
#include "platform/utilities.h"
#include "text/text.h"

namespace quillmark {

const frmSetup::Direction frmSetup::receive{.Field = &frmSetup::RxFrequency,
                                            .Caption = &frmSetup::RxLabel,
                                            .Word = "rx",
                                            .WholeCommand = "RX",
                                            .Prompt = "Enter a new receive frequency",
                                            .Title = "Program Rx Frequency",
                                            .InfoTitle = "Receive Frequency Information",
                                            .InfoWord = "receive"};
const frmSetup::Direction frmSetup::transmit{.Field = &frmSetup::TxFrequency,
                                             .Caption = &frmSetup::TxLabel,
                                             .Word = "tx",
                                             .WholeCommand = "TX",
                                             .Prompt = "Enter a new transmit frequency",
                                             .Title = "Program Tx Frequency",
                                             .InfoTitle = "Transmit Frequency Information",
                                             .InfoWord = "transmit"};

frmSetup::frmSetup(Platform& machine, Session& shared, frmOrvalent& window,
                   Conversation& conversation)
    : Form("frmSetup"),
      lblNote(*this, this, "lblNote",
              "Note: The terminal window is still active and able to accept commands."),
      RxFrequency(*this, this, "RxFrequency", "n/a"),
      TxFrequency(*this, this, "TxFrequency", "n/a"),
      RxLabel(*this, this, "RxLabel", "Rx. Frequency"),
      TxLabel(*this, this, "TxLabel", "Tx. Frequency"),
      Key(*this, this, "Key", "Key"),
      DKey(*this, this, "DKey", "De-Key"),
      ExitButton(*this, this, "ExitButton", "Exit Setup Mode"),
      platform(machine),
      session(shared),
      main(window),
      radio(conversation) {
  Caption = "Setup Mode";
  Key.ToolTip = "Enables the transmitter";
  DKey.ToolTip = "Disables the transmitter";
  DKey.Enabled = false;
  Wire(receive);
  Wire(transmit);
  Key.OnClick = [this] { Press(Key, DKey, "KEY"); };
  DKey.OnClick = [this] { Press(DKey, Key, "DKEY"); };
  ExitButton.OnClick = [this] { ExitButton_Click(); };
  WithLinkErrors(platform.Dialogs, [this] {
    ReadFrequency(receive);
    ReadFrequency(transmit);
  });
  main.ButtonRSSI.Enabled = true;
}

void frmSetup::Wire(const Direction& direction) {
  ValueField& field = this->*direction.Field;
  Label& label = this->*direction.Caption;
  field.MousePointer = Pointer::Arrow;
  label.ToolTip = "Click for more Information";
  field.OnClick = [this, &direction] { Frequency_Click(direction); };
  label.OnClick = [this, &direction] { ShowInfo(direction); };
}

void frmSetup::Talk(std::function<void()> act) {
  radio.Turns.WhenFree([this, window = weak_from_this(), act = std::move(act)] {
    const auto alive = window.lock();
    if (!alive || !Loaded() || !radio.Open()) return;
    const LineTurns::Turn turn(radio.Turns);
    WithLinkErrors(platform.Dialogs, act);
  });
}

// A refusal, which comes outside of setup mode, is no frequency.
void frmSetup::ReadFrequency(const Direction& direction) {
  WaitMilliseconds(platform.Events, 100);
  platform.Events.Pump();
  const auto value = radio.Ask({.Command = direction.Word, .Opening = direction.WholeCommand});
  if (!value || quillmark::Find(*value, direction.WholeCommand) != 1) return;
  constexpr std::ptrdiff_t start = 4;  // behind the word and a blank
  constexpr std::ptrdiff_t length = 7;
  if (auto frequency = Mid(*value, start, length)) {
    (this->*direction.Field).Text = std::move(*frequency);
  }
}

void frmSetup::Frequency_Click(const Direction& direction) {
  const std::string answer =
      platform.Dialogs.Input({direction.Prompt, direction.Title, (this->*direction.Field).Text()});
  if (answer.empty() || !radio.Open()) return;
  const bool whole = Holds(answer, direction.WholeCommand);
  const std::string command = whole ? answer : std::string(direction.Word) + " " + answer;
  Talk([this, &direction, command] {
    const bool taken = radio.CommandExchange(command, "PROGRAMMED OK", Seconds(3));
    ReadFrequency(direction);
    ValueField& field = this->*direction.Field;
    field.Mark = taken ? "" : "Sent " + command + "; the radio has " + field.Text();
  });
}

void frmSetup::ShowInfo(const Direction& direction) {
  const std::string word = direction.InfoWord;
  platform.Dialogs.Message(
      {"This selects the test " + word +
           " frequency used in lieu of hopping when in setup mode.\r\n\r\nThe "
           "test " +
           word +
           " frequency can be reprogrammed to any value\r\nbetween 902.200 MHz "
           "and 927.600 MHz, inclusive.",
       direction.InfoTitle});
}

void frmSetup::Press(Button& pressed, Button& other, const char* command) {
  if (!radio.Open()) return;
  Talk([this, &pressed, &other, command] {
    if (!pressed.Enabled()) return;  // a second click while the first one waited
    pressed.Enabled = false;
    other.Enabled = true;
    radio.Prime();
    radio.Say(command);
  });
}

void frmSetup::ExitButton_Click() {
  if (quillmark::Find(main.ModeText(), "M", 2) != 0) main.ButtonRSSI.Enabled = false;
  // It goes out even after this window has closed.
  radio.Turns.WhenFree([&talk = radio, &shared = session, &dialogs = platform.Dialogs] {
    WithLinkErrors(dialogs, [&talk] { talk.Say("quit"); });
    shared.AskForRead();
  });
  Unload();
}

}  // namespace quillmark
