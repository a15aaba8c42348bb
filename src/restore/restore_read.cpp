#include "restore/restore_read.h"

#include "restore/restore_select.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int wakeRounds = 30;
constexpr int stepPause = 80;   // ms
constexpr int lastPause = 900;  // ms
constexpr std::uint32_t doneColour = 0xC7A37F;

// How far a read has come behind a row. The steps are shown whether the revision has the row or
// not.
struct ReadStep {
  RestoreSetting Behind;
  int Percent;
};

constexpr ReadStep readSteps[] = {
    {RestoreSetting::OwnerMessage, 10}, {RestoreSetting::BaudRate, 20},
    {RestoreSetting::AlarmMask, 30},    {RestoreSetting::CTSHOLDdelay, 40},
    {RestoreSetting::LPMHOLD, 50},      {RestoreSetting::LPM, 60},
    {RestoreSetting::FEC, 70},          {RestoreSetting::XADDR, 80},
    {RestoreSetting::XRSSI, 90},        {RestoreSetting::SoftRTU, 100},
};

}  // namespace

RestoreReader::RestoreReader(Platform& machine, RestoreControls& itsControls, RestoreLink& itsLink,
                             Session& shared)
    : platform(machine), controls(itsControls), link(itsLink), session(shared) {}

void RestoreReader::WakeRadio() {
  session.RxBuffer = " ";
  for (int round = 0; round < wakeRounds; ++round) {
    link.Pump();
    if (!link.IsOpen() || controls.CloseRequested) return;
    link.Output("\x1B\r\n");
    link.Sleep(static_cast<int>(platform.Random.Next() * 701) + 400);
    for (int count = 0; count < 4; ++count) {
      link.Output("\r\r");
      link.Sleep(100);
    }
    session.RxBuffer.Append(link.Take());
    if (session.RxBuffer.View().ends_with('>')) return;
  }
}

void RestoreReader::Run() {
  ShowStart();
  for (std::size_t n = 0; n < controls.Rows.size(); ++n) {
    RestoreRowControls& row = controls.Rows[RestoreReadPlace(n)];
    const bool offered = row.Row.Read.HoldsIfUnknown(session.SoftwareRevision);
    if (offered) ReadRow(row);
    AfterRow(row.Row.Id, offered);
  }
  ShowEnd();
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
  link.Take();
  link.Sleep(stepPause);
  link.Pump();
  session.RxBuffer = " ";
}

void RestoreReader::ReadRow(RestoreRowControls& row) {
  const auto value = link.Ask(row.Row.Word);
  if (!value) return;
  const bool masterOnly =
      row.Row.Id == RestoreSetting::RepeatCount && Holds(*value, "PROGRAMMABLE ONLY");
  row.Current.Text = masterOnly ? "MASTER ONLY" : *value;
  if (row.Row.Id == RestoreSetting::Mode && controls.FileLoaded) FollowModeOfRadio(controls);
}

void RestoreReader::AfterRow(RestoreSetting id, bool wasRead) {
  if (id == RestoreSetting::DTYPE && wasRead) link.Sleep(stepPause);
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

void RestoreReader::ShowEnd() {
  link.Pump();
  link.Sleep(lastPause);
  controls.ProgressLabel.Enabled = false;
  for (Shape& block : controls.ProgressBlock) block.FillColor = doneColour;
  controls.tbr_SaveConfig.Enabled = true;
}

}  // namespace quillmark
