#pragma once

#include <deque>
#include <span>
#include <string>
#include <vector>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/shape.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "restore/restore_rows.h"
#include "session/session.h"

namespace quillmark {

// One row of the store and restore window: its check box, the radio's value, the file's value.
class RestoreRowControls {
 public:
  RestoreRowControls(Form& form, Frame& frame, RestoreRow row);

  const RestoreRow Row;
  CheckBox Check;
  TextBox Current;
  TextBox New;
  bool CameLast = false;  // the last read has brought a value

  // A hidden row is disabled as well. A shown one starts with its box disabled.
  void Show(bool shown);
  void MoveTo(double top);
  bool Shown() const { return Check.Visible(); }
  // The box alone, or box and both fields. A hidden row stays disabled.
  void EnableBox(bool enabled) { Check.Enabled = enabled && Shown(); }
  void Enable(bool enabled);

  RestoreMatch Match() const { return MatchOf(Row, Current.Text(), New.Text()); }
  // Only the radio has a value, or only the file.
  bool HasOneValue() const;
};

// The heading of the radio's column.
inline constexpr const char* CurrentHeading = "Current Settings:";

// The controls of the store and restore window and the flags that its work shares. Part of the
// window, and as long-lived. Positions are twips.
class RestoreControls {
 public:
  // `settings` outlives the window.
  RestoreControls(Form& form, EventLoop& events, std::span<const Setting> settings);

  quillmark::TabStrip TabStrip;
  std::deque<Frame> RadSet;             // one for each tab
  std::deque<RestoreRowControls> Rows;  // in the order in which they are programmed
  Label DiagWarnLabel;
  Frame DescriptionFrame;
  Label Label1, Label2, FileSettingsLabel;
  Frame Frame2;
  Label ProgressLabel;
  std::deque<Shape> ProgressBlock;
  ToolButton tbr_OpenConfig, tbr_SaveConfig, tbr_ProgramRadio, tbr_Refresh;
  Button CheckAllButton, UnCheckAllButton, TickDifferingButton, CloseButton;
  Label lblDiffers;  // how many rows differ
  Label lblOutcome;  // how far programming has come, and how it ended
  Timer Timer1;

  bool ReadPending = false;     // a read of the radio is wanted
  bool ReadIdle = false;        // neither a read nor a save runs: the window may close at once
  bool CloseRequested = false;  // it closes when what runs has ended
  bool FileLoaded = false;      // a file was opened in this window
  bool Loading = false;         // and is still being loaded

  // The row of a setting that has one.
  RestoreRowControls& At(SettingId id);
  const std::string& ModeText() { return At(SettingId::Mode).Current.Text(); }
  // In the order of the catalogue, in which the window reads and saves.
  std::vector<RestoreRowControls*> ReadOrder();

  // Shows, hides and moves rows for the revision; an unknown one counts as below every threshold.
  void ApplyRevision(const Revision& revision);
  void TabStrip_Click();
  // Counts the rows that differ, on each tab and in all, and marks the new values that the radio
  // will not take. Once a file is open; nothing is counted before all of it has been loaded.
  void ShowDifferences();
  // The row of blocks while nothing runs.
  void ResetProgress();

 private:
  void JudgeRows();
  void CountRows();

  Revision shownRevision;
};

}  // namespace quillmark
