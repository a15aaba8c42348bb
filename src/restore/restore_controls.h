#pragma once

#include <deque>

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
  RestoreRowControls(Form& form, Frame& frame, const RestoreRow& row);

  const RestoreRow& Row;
  CheckBox Check;
  TextBox Current;
  TextBox New;

  // A hidden row is disabled as well. A shown one starts with its box disabled.
  void Show(bool shown);
  void MoveTo(double top);
  bool Shown() const { return Check.Visible(); }
  // The box alone, or box and both fields. A hidden row stays disabled.
  void EnableBox(bool enabled) { Check.Enabled = enabled && Shown(); }
  void Enable(bool enabled);
};

// The heading of the radio's column.
inline constexpr const char* CurrentHeading = "Current Settings:";

// The controls of the store and restore window and the flags that its work shares. Part of the
// window, and as long-lived. Positions are twips.
class RestoreControls {
 public:
  RestoreControls(Form& form, EventLoop& events);

  quillmark::TabStrip TabStrip;
  std::deque<Frame> RadSet;             // one for each tab
  std::deque<RestoreRowControls> Rows;  // as in the table
  Label DiagWarnLabel;
  Frame DescriptionFrame;
  Label Label1, Label2, FileSettingsLabel;
  Frame Frame2;
  Label ProgressLabel;
  std::deque<Shape> ProgressBlock;
  ToolButton tbr_OpenConfig, tbr_SaveConfig, tbr_ProgramRadio, tbr_Refresh;
  Button CheckAllButton, UnCheckAllButton, CloseButton;
  Timer Timer1;

  bool ReadPending = false;     // a read of the radio is wanted
  bool ReadIdle = false;        // neither a read nor a save runs: the window may close at once
  bool CloseRequested = false;  // it closes when what runs has ended
  bool FileLoaded = false;      // a file was opened in this window

  RestoreRowControls& At(RestoreSetting id) { return Rows[static_cast<std::size_t>(id)]; }
  const std::string& ModeText() { return At(RestoreSetting::Mode).Current.Text(); }

  // Shows, hides and moves rows for the revision; an unknown one counts as below every threshold.
  void ApplyRevision(const Revision& revision);
  void TabStrip_Click();
  // The row of blocks while nothing runs.
  void ResetProgress();
};

}  // namespace quillmark
