#include "restore/restore_select.h"

namespace quillmark {

namespace {

struct TickedMode {
  const char* Mode;
  bool Master;
  bool Sleep;
};

constexpr TickedMode tickedModes[] = {
    {"MODE M", true, false},
    {"MODE R", false, true},
    {"MODE X", false, false},
};

}  // namespace

void FollowModeOfRadio(RestoreControls& controls) {
  const bool master = controls.ModeText() == "MODE M";
  for (RestoreRowControls& row : controls.Rows) {
    const RestoreFollows rule = row.Row.Mode;
    if (rule == RestoreFollows::NotMaster) row.Enable(!master);
    if (rule == RestoreFollows::Master || rule == RestoreFollows::MasterAndTick) row.Enable(master);
  }
}

void EnableLoadedRow(RestoreControls& controls, RestoreRowControls& row) {
  const std::string& mode = controls.ModeText();
  switch (row.Row.Mode) {
    case RestoreFollows::None:
      return row.EnableBox(true);
    case RestoreFollows::NotMaster:
      return row.Enable(mode != "MODE M");
    case RestoreFollows::NotRemoteAtLoad:
      return row.Enable(mode != "MODE R");
    case RestoreFollows::Master:
    case RestoreFollows::MasterAndTick:
      return row.Enable(mode == "MODE M");
  }
}

void ModeCheck_Click(RestoreControls& controls) {
  const RestoreRowControls& modeRow = controls.At(SettingId::Mode);
  const std::string mode = modeRow.Check.Checked() ? modeRow.New.Text() : modeRow.Current.Text();
  for (const TickedMode& rule : tickedModes) {
    if (mode != rule.Mode) continue;
    for (RestoreRowControls& row : controls.Rows) {
      if (row.Row.Mode == RestoreFollows::MasterAndTick) row.Enable(rule.Master);
      if (row.Row.Mode == RestoreFollows::NotMaster) row.Enable(rule.Sleep);
    }
  }
}

void CheckEach(RestoreControls& controls, bool ticked) {
  for (RestoreRowControls& row : controls.Rows) {
    if (row.Check.Enabled()) row.Check.Checked = ticked;
  }
}

void TickDiffering(RestoreControls& controls) {
  int ticked = 0;
  int left = 0;
  for (RestoreRowControls& row : controls.Rows) {
    const bool differs = row.Shown() && row.Match() == RestoreMatch::Differs;
    const bool enabled = row.Check.Enabled();
    if (enabled) row.Check.Checked = differs;
    if (differs) ++(enabled ? ticked : left);
  }
  controls.lblOutcome.Text =
      std::to_string(ticked) + " ticked." +
      (left == 0 ? "" : " " + std::to_string(left) + " more can't be ticked in this mode.");
}

void TickToRestore(RestoreControls& controls) {
  RestoreRowControls& mode = controls.At(SettingId::Mode);
  mode.Check.Checked = mode.Check.Enabled() && mode.Match() == RestoreMatch::Differs;
  ModeCheck_Click(controls);
  TickDiffering(controls);
  for (RestoreRowControls& row : controls.Rows) {
    const bool onlyInFile = row.New.Text() != NoValue && row.Match() == RestoreMatch::Missing;
    if (onlyInFile && row.Check.Enabled()) row.Check.Checked = true;
  }
}

}  // namespace quillmark
