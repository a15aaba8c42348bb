#include "restore/restore_read.h"

#include "conversation/reply.h"
#include "restore/restore_select.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int stepPause = 80;   // ms
constexpr int lastPause = 900;  // ms
constexpr std::uint32_t doneColour = 0xC7A37F;

// How far a read has come behind a row. The steps are shown whether the revision has the row or
// not.
struct ReadStep {
  SettingId Behind;
  int Percent;
};

constexpr ReadStep readSteps[] = {
    {SettingId::OwnerMessage, 10}, {SettingId::BaudRate, 20}, {SettingId::AlarmMask, 30},
    {SettingId::CTSHOLDdelay, 40}, {SettingId::LPMHOLD, 50},  {SettingId::LPM, 60},
    {SettingId::FEC, 70},          {SettingId::XADDR, 80},    {SettingId::XRSSI, 90},
    {SettingId::SoftRTU, 100},
};

}  // namespace

RestoreReader::RestoreReader(RestoreControls& itsControls, RestoreLink& itsLink, Session& shared)
    : controls(itsControls), link(itsLink), session(shared) {}

void RestoreReader::Run() {
  bool anyCame = false;
  ShowStart();
  for (RestoreRowControls* row : controls.ReadOrder()) {
    const bool offered = row->Row.Read.HoldsIfUnknown(session.SoftwareRevision);
    row->CameLast = offered && ReadRow(*row);
    anyCame = anyCame || row->CameLast;
    controls.ShowDifferences();
    AfterRow(row->Row.Id, offered);
  }
  ShowEnd(anyCame);
}

void RestoreReader::ShowStart() {
  controls.ProgressLabel.Visible = true;
  controls.ProgressLabel.Enabled = true;
  controls.ProgressLabel.Text = "";
  for (Shape& block : controls.ProgressBlock) {
    block.FillColor = ThemeButtonShadow;
    block.Visible = false;
  }
  link.Pump();
  link.Sleep(100);
  link.Pump();
  link.Sleep(50);
  link.Drop();
  link.Sleep(stepPause);
  link.Pump();
}

bool RestoreReader::ReadRow(RestoreRowControls& row) {
  const auto value = link.Ask({.Command = row.Row.Word, .Opening = row.Row.What->Reply});
  // A line end would make it two lines of a file.
  if (!value || value->find_first_of("\r\n") != std::string::npos) return false;
  if (IsRefusal(*value)) {
    row.Current.Text = NoValue;
    return false;
  }
  const char* const refusal = row.Row.What->Restored->MasterOnlyReply;
  row.Current.Text = refusal != nullptr && Holds(*value, refusal) ? "MASTER ONLY" : *value;
  if (row.Row.Id == SettingId::Mode && controls.FileLoaded) FollowModeOfRadio(controls);
  return true;
}

void RestoreReader::AfterRow(SettingId id, bool wasRead) {
  if (id == SettingId::DTYPE && wasRead) link.Sleep(stepPause);
  for (const ReadStep& step : readSteps) {
    if (step.Behind == id) Step(step.Percent);
  }
}

void RestoreReader::Step(int percent) {
  link.Sleep(stepPause);
  link.Pump();
  controls.ProgressBlock[static_cast<std::size_t>(percent / 10 - 1)].Visible = true;
  controls.ProgressLabel.Text = (percent < 100 ? " " : "") + std::to_string(percent) + "%";
  link.Pump();
}

void RestoreReader::ShowEnd(bool anyCame) {
  link.Pump();
  link.Sleep(lastPause);
  controls.ProgressLabel.Enabled = false;
  for (Shape& block : controls.ProgressBlock) block.FillColor = doneColour;
  // A file without a setting must not take the place of a good one.
  controls.tbr_SaveConfig.Enabled = anyCame;
  controls.Label2.Text =
      std::string(CurrentHeading) + (anyCame ? "" : "\rnone came, so none can be saved");
}

}  // namespace quillmark
