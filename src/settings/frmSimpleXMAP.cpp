#include "settings/frmSimpleXMAP.h"

#include <memory>

#include "platform/utilities.h"
#include "settings/frmSimpleRptrSetup.h"
#include "text/at_end.h"
#include "text/numbers.h"

namespace quillmark {

frmSimpleXMAP::frmSimpleXMAP(Platform& machine, frmOrvalent& window, Conversation& talk)
    : OptionWindow("frmSimpleXMAP", machine, window, talk),
      cmdSet(*this, this, "cmdSet", "Set"),
      cmdCancel(*this, this, "cmdCancel", "Cancel"),
      cmdHelp(*this, this, "cmdHelp", "Help"),
      lblMain(*this, this, "lblMain"),
      lblMaster(
          *this, this, "lblMaster",
          "(Check '0' if you want this remote to try to connect to the master radio in case the "
          "repeater fails.)"),
      lblXMap(*this, this, "lblXMap") {
  Caption = "XMAP Setting";
  lblMain.Text = "Select the XADDR's that this remote will be allowed to associate with.";
  for (std::size_t i = 0; i < AddressCount; ++i) {
    chkXADDR.emplace_back(*this, this, "chkXADDR_" + std::to_string(i), std::to_string(i));
    chkXADDR.back().OnClick = [this, i] { chkXADDR_Click(i); };
  }
  cmdSet.OnClick = Handler([this] { cmdSet_Click(); });
  cmdHelp.OnClick = [this] { cmdHelp_Click(); };
  cmdCancel.OnClick = Handler([this] { Unload(); });
  chkXADDR_Click(0);
}

void frmSimpleXMAP::chkXADDR_Click(std::size_t index) {
  if (busy) return;
  busy = true;
  lastClicked = index;
  if (stage == Stage::Map) {
    map.clear();
    for (const CheckBox& box : chkXADDR) map.insert(0, box.Checked() ? "1" : "0");
    lblXMap.Text = "Current XMAP selection: " + BinToHex(map);
  } else {
    for (std::size_t i = 0; i < AddressCount; ++i) chkXADDR[i].Checked = i == index;
  }
  busy = false;
}

void frmSimpleXMAP::cmdSet_Click() {
  // The second click of a double click, behind the pauses, would answer the next stage's question.
  if (setting) return;
  const auto underWay = Raised(setting);
  if (stage == Stage::Map) {
    SendMap();
  } else {
    SendPrimary();
  }
}

void frmSimpleXMAP::SendMap() {
  radio.Take();
  radio.Say("XMAP " + BinToHex(map));
  WaitMilliseconds(platform.Events, 500);
  radio.Take();
  WaitMilliseconds(platform.Events, 250);
  stage = Stage::Primary;
  platform.Events.Pump();
  ShowPrimaryStage();
  WaitMilliseconds(platform.Events, 500);
}

void frmSimpleXMAP::ShowPrimaryStage() {
  busy = true;
  Caption = "XPRI Setting";
  lblMain.Text =
      "Select the AP/REPEATER from the XMAP that you want this remote to associate with first.";
  lblMaster.Visible = false;
  for (CheckBox& box : chkXADDR) {
    box.Enabled = box.Checked();
    box.Checked = false;
  }
  // The usual repeater, also where it was not in the map.
  chkXADDR[1].Checked = true;
  busy = false;
}

void frmSimpleXMAP::SendPrimary() {
  radio.Take();
  std::size_t chosen = lastClicked;
  for (std::size_t i = AddressCount; i-- > 0;) {
    if (chkXADDR[i].Checked()) chosen = i;
  }
  radio.Say("XPRI " + std::to_string(chosen));
  WaitMilliseconds(platform.Events, 500);
  radio.Take();
  radio.Take();
  Unload();
}

// Left of this window, so that both can be read.
void frmSimpleXMAP::cmdHelp_Click() {
  constexpr double gap = 120;  // twips
  const auto picture = std::make_shared<frmSimpleRptrSetup>();
  picture->Left = Left() - gap - picture->Width();
  platform.Windows.ShowModal(picture, *this);
}

}  // namespace quillmark
