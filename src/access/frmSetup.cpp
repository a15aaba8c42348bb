#include "access/frmSetup.h"

#include "link/serial_failure.h"
#include "prefs/utilities.h"
#include "radio/command_exchange.h"
#include "text/text.h"

namespace quillmark {

const frmSetup::Direction frmSetup::receive{&frmSetup::RxFrequency,
                                            &frmSetup::RxLabel,
                                            "rx",
                                            "RX",
                                            "Enter a new receive frequency",
                                            "Program Rx Frequency",
                                            "Receive Frequency Information",
                                            "receive"};
const frmSetup::Direction frmSetup::transmit{&frmSetup::TxFrequency,
                                             &frmSetup::TxLabel,
                                             "tx",
                                             "TX",
                                             "Enter a new transmit frequency",
                                             "Program Tx Frequency",
                                             "Transmit Frequency Information",
                                             "transmit"};

frmSetup::frmSetup(Platform& machine, Session& shared, frmOrvalent& window)
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
      main(window) {
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
  field.OnClick = [this, &direction] {
    WithLinkErrors(platform.Dialogs, [&] { Frequency_Click(direction); });
  };
  label.OnClick = [this, &direction] { ShowInfo(direction); };
}

void frmSetup::ReadFrequency(const Direction& direction) {
  session.RxBuffer = " ";
  WaitMilliseconds(platform.Events, 100);
  platform.Events.Pump();
  session.RxBuffer = " ";
  platform.MSComm1.Output(std::string(direction.Word) + "\r");
  const auto answered = [&] {
    return Holds(session.RxBuffer, ">") && Holds(session.RxBuffer, direction.Word);
  };
  if (!WaitUntil(platform.Events, Seconds(4), answered)) return;
  constexpr std::ptrdiff_t length = 7;
  const std::string_view received = session.RxBuffer;
  const bool prompted = received.size() >= 6 && received.substr(received.size() - 6) == "SETUP>";
  const auto first = prompted ? 9 : static_cast<std::ptrdiff_t>(received.size()) - length + 1;
  if (auto value = Mid(received, first, length)) (this->*direction.Field).Text = std::move(*value);
}

void frmSetup::Frequency_Click(const Direction& direction) {
  const std::string answer =
      platform.Dialogs.Input({direction.Prompt, direction.Title, (this->*direction.Field).Text()});
  if (answer.empty() || !platform.MSComm1.PortOpen()) return;
  const bool whole = Holds(answer, direction.WholeCommand);
  CommandExchange(session, platform.MSComm1, platform.Events,
                  whole ? answer : std::string(direction.Word) + " " + answer, "PROGRAMMED OK",
                  Seconds(3));
  ReadFrequency(direction);
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
  if (!platform.MSComm1.PortOpen()) return;
  pressed.Enabled = false;
  other.Enabled = true;
  session.RxBuffer = " ";
  WithLinkErrors(platform.Dialogs, [&] { platform.MSComm1.Output(std::string(command) + "\r"); });
}

void frmSetup::ExitButton_Click() {
  if (quillmark::Find(main.Mode.Text(), "M", 2) != 0) main.ButtonRSSI.Enabled = false;
  WithLinkErrors(platform.Dialogs, [this] { platform.MSComm1.Output("quit\r"); });
  session.RefreshRequested = true;
  Unload();
}

}  // namespace quillmark
