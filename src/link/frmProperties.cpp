#include "link/frmProperties.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "app/frmOrvalent.h"

namespace quillmark {

namespace {

std::string Described(const PortDescription& port) {
  if (port.Device.empty()) return "No serial port has this number.";
  const std::string adapter = port.Adapter.empty() ? "" : " (" + port.Adapter + ")";
  return port.Device + adapter + (port.Present ? "" : ", not present");
}

}  // namespace

frmProperties::frmProperties(Platform& machine, Session& shared, frmOrvalent& window,
                             std::function<void()> closed)
    : Form("frmProperties"),
      SelectPort(
          *this, this, "SelectPort",
          "Please select the Com Port you would like to use for diagnostic communication with "
          "the Quillmark radio:"),
      cboPort(*this, this, "cboPort"),
      lblDevice(*this, this, "lblDevice"),
      cmdOK(*this, this, "cmdOK", "OK"),
      cmdCancel(*this, this, "cmdCancel", "Cancel"),
      platform(machine),
      session(shared),
      main(window),
      closeSession(std::move(closed)) {
  Caption = "Setup";
  cboPort.OnChange = [this] { ShowDevice(); };
  cmdOK.OnClick = [this] { cmdOK_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
  LoadPropertySettings();
}

void frmProperties::LoadPropertySettings() {
  const std::vector<PortDescription> ports = platform.Ports.Ports();
  std::vector<std::string> names;
  std::vector<std::string> tips;
  std::vector<ItemNote> notes;
  for (std::size_t i = 0; i < 16; ++i) {
    const PortDescription port = i < ports.size() ? ports[i] : PortDescription{};
    names.push_back("Com" + std::to_string(i + 1));
    tips.push_back(Described(port));
    notes.push_back({port.Device.empty() ? "" : Described(port), !port.Present});
  }
  cboPort.Items = names;
  cboPort.ItemTips = tips;
  cboPort.ItemNotes = notes;
  cboPort.SetListIndex(platform.MSComm1.CommPort() - 1);
  ShowDevice();
}

void frmProperties::ShowDevice() {
  const int index = cboPort.ListIndex();
  lblDevice.Text = index < 0 ? "" : cboPort.ItemTips()[static_cast<std::size_t>(index)];
}

void frmProperties::cmdOK_Click() {
  const int number = cboPort.ListIndex() + 1;
  if (number != platform.MSComm1.CommPort() && !ChangePort(number)) return;
  platform.Preferences.Write("Properties", "CommPort", std::to_string(platform.MSComm1.CommPort()));
  session.PortChanged = true;
  Unload();
}

void frmProperties::cmdCancel_Click() {
  session.PortChanged = false;
  Unload();
}

bool frmProperties::ChangePort(int number) {
  SerialPort& port = platform.MSComm1;
  const bool wasOpen = port.PortOpen();
  if (wasOpen && !ConfirmChange()) {
    Unload();
    return false;
  }
  const int oldNumber = port.CommPort();
  try {
    port.SetPortOpen(false);
    port.SetCommPort(number);
    if (!wasOpen) return true;
    port.SetPortOpen(true);
    main.mnuOpen.Checked = port.PortOpen();
    main.mnuSendText.Enabled = port.PortOpen();
    main.tbr_TransmitTextFile.Enabled = port.PortOpen();
    return true;
  } catch (const SerialError& error) {
    platform.Dialogs.Message(
        {.Text = error.what(), .Symbol = Icon::Exclamation, .Details = error.Details});
    port.SetCommPort(oldNumber);
    // The session on the old port is over; the main window must not go on showing it.
    if (wasOpen) closeSession();
  }
  session.PortChanged = false;
  return false;
}

bool frmProperties::ConfirmChange() {
  return platform.Dialogs.Message(
             {"Warning: The COM port is already open. Changing the COM port will close the current "
              "session,\rpossibly interupting a connection with a radio.\r\rDo you wish to "
              "continue and switch COM ports?",
              "Warning", Icon::Exclamation, Buttons::YesNo}) == Answer::Yes;
}

}  // namespace quillmark
