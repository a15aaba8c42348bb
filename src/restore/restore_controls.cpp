#include "restore/restore_controls.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "catalogue/same_value.h"
#include "restore/restore_verdicts.h"

namespace quillmark {

namespace {

constexpr int timerInterval = 1;  // ms
constexpr int frameCount = static_cast<int>(TabCount);
constexpr int blockCount = 10;

template <class Kind>
void AddEach(std::deque<Kind>& controls, int count, Form& form, Control& container,
             const std::string& name) {
  for (int i = 0; i < count; ++i) {
    controls.emplace_back(form, &container, name + "_" + std::to_string(i));
  }
}

}  // namespace

RestoreRowControls::RestoreRowControls(Form& form, Frame& frame, RestoreRow row)
    : Row(std::move(row)),
      Check(form, &frame, Row.Check, Row.Caption),
      Current(form, &frame, Row.Current, NoValue),
      New(form, &frame, Row.New, NoValue) {
  MoveTo(Row.Top);
}

void RestoreRowControls::MoveTo(double top) {
  Check.Top = top;
  Current.Top = top;
  New.Top = top;
}

void RestoreRowControls::Show(bool shown) {
  Check.Enabled = false;
  Check.Visible = shown;
  for (TextBox* field : {&Current, &New}) {
    field->Enabled = shown;
    field->Visible = shown;
  }
}

bool RestoreRowControls::HasOneValue() const {
  return IsValue(*Row.What, Current.Text()) != IsValue(*Row.What, New.Text());
}

void RestoreRowControls::Enable(bool enabled) {
  EnableBox(enabled);
  Current.Enabled = enabled && Shown();
  New.Enabled = enabled && Shown();
}

// clang-format off
RestoreControls::RestoreControls(Form& form, EventLoop& events, std::span<const Setting> settings)
    : TabStrip(form, &form, "TabStrip",
               {"Radio Information", "Radio Settings 1...", "Radio Settings 2...",
                "Network Settings 1...", "Network Settings 2...", "Store & Forward Settings...",
                "Network Wide Diagnostic Settings..."}),
      RadSet([&] {
        std::deque<Frame> frames;
        AddEach(frames, frameCount, form, form, "RadSet");
        return frames;
      }()),
      Rows([&] {
        std::deque<RestoreRowControls> rows;
        for (RestoreRow& row : RestoreRows(settings)) {
          Frame& frame = RadSet.at(row.Page);
          rows.emplace_back(form, frame, std::move(row));
        }
        return rows;
      }()),
      DiagWarnLabel(form, &RadSet.back(), "DiagWarnLabel",
                    "These features are only accessible with radio firmware versions 2.0.0 and above."),
      DescriptionFrame(form, &form, "DescriptionFrame"),
      Label1(form, &DescriptionFrame, "Label1", "Select Settings to reprogram in the radio:"),
      Label2(form, &DescriptionFrame, "Label2", CurrentHeading),
      FileSettingsLabel(form, &DescriptionFrame, "FileSettingsLabel", "Settings in file"),
      Frame2(form, &form, "Frame2"),
      ProgressLabel(form, &Frame2, "ProgressLabel"),
      ProgressBlock([&] {
        std::deque<Shape> blocks;
        AddEach(blocks, blockCount, form, Frame2, "ProgressBlock");
        return blocks;
      }()),
      tbr_OpenConfig(form, &form, "tbr_OpenConfig"),
      tbr_SaveConfig(form, &form, "tbr_SaveConfig"),
      tbr_ProgramRadio(form, &form, "tbr_ProgramRadio"),
      tbr_Refresh(form, &form, "tbr_Refresh"),
      CheckAllButton(form, &form, "CheckAllButton", "Check All"),
      UnCheckAllButton(form, &form, "UnCheckAllButton", "Uncheck All"),
      TickDifferingButton(form, &form, "TickDifferingButton", "Tick Differing"),
      CloseButton(form, &form, "CloseButton", "Close Window"),
      lblDiffers(form, &form, "lblDiffers"),
      lblOutcome(form, &form, "lblOutcome"),
      Timer1(form, "Timer1", events, timerInterval, false) {
  CheckAllButton.ToolTip = "Ticks every row that can be ticked (Ctrl+Shift+A)";
  UnCheckAllButton.ToolTip = "Ticks no row (Ctrl+Shift+N)";
  TickDifferingButton.ToolTip = "Ticks the rows that differ, and no others (Ctrl+D)";
  tbr_OpenConfig.ToolTip = "Open A Configuration File";
  tbr_SaveConfig.ToolTip = "Save Current Settings To A File";
  tbr_ProgramRadio.ToolTip = "Program Selected Settings To The Radio";
  tbr_Refresh.ToolTip = "Refresh Radio Settings";
  TabStrip.OnClick = [this] { TabStrip_Click(); };
}
// clang-format on

void RestoreControls::ApplyRevision(const Revision& revision) {
  shownRevision = revision;
  for (RestoreRowControls& row : Rows) {
    row.Show(row.Row.Shown.HoldsBelowIfUnknown(revision));
    const SettingView& view = row.Row.What->View;
    if (view.Threshold > 0) {
      row.MoveTo(revision.AtLeast(view.Threshold) ? row.Row.Top : view.TopBelow);
    }
  }
  DiagWarnLabel.Visible = !revision.AtLeast(200);
}

RestoreRowControls& RestoreControls::At(SettingId id) {
  const auto row = std::ranges::find_if(Rows, [id](auto& each) { return each.Row.Id == id; });
  if (row == Rows.end()) throw std::invalid_argument("A setting that can't be restored");
  return *row;
}

std::vector<RestoreRowControls*> RestoreControls::ReadOrder() {
  std::vector<RestoreRowControls*> order;
  for (RestoreRowControls& row : Rows) order.push_back(&row);
  std::ranges::sort(order, {}, [](const RestoreRowControls* row) { return row->Row.Id; });
  return order;
}

void RestoreControls::TabStrip_Click() {
  RadSet.at(static_cast<std::size_t>(TabStrip.SelectedIndex() - 1)).BringToFront();
}

void RestoreControls::JudgeRows() {
  for (RestoreRowControls& row : Rows) {
    const Verdict verdict = JudgeRow(row.Row, row.New.Text(), shownRevision);
    row.New.Problem = row.Shown() ? verdict.Sentence() : "";
  }
}

void RestoreControls::ShowDifferences() {
  if (!FileLoaded) return;
  JudgeRows();
  if (Loading) {
    TabStrip.Counts = std::vector<int>{};
    lblDiffers.Text = "Loading the file...";
  } else {
    CountRows();
  }
}

void RestoreControls::CountRows() {
  std::vector<int> onTabs(RadSet.size());
  int differ = 0;
  int compared = 0;
  int oneSided = 0;
  for (const RestoreRowControls& row : Rows) {
    if (!row.Shown()) continue;
    const RestoreMatch match = row.Match();
    if (match == RestoreMatch::Missing) {
      oneSided += row.HasOneValue() ? 1 : 0;
      continue;
    }
    ++compared;
    if (match == RestoreMatch::Equal) continue;
    ++differ;
    ++onTabs.at(row.Row.Page);
  }
  TabStrip.Counts = onTabs;
  lblDiffers.Text = std::to_string(differ) + " of " + std::to_string(compared) + " differ" +
                    (oneSided == 0 ? "" : ", " + std::to_string(oneSided) + " on one side only");
}

void RestoreControls::ResetProgress() {
  ProgressLabel.Text = "";
  ProgressLabel.Visible = false;
  for (Shape& block : ProgressBlock) {
    block.BorderStyle = 1;
    block.BorderWidth = 2;
    block.BorderColor = ThemeButtonFace;
    block.FillColor = ThemeButtonShadow;
    block.Visible = false;
  }
}

}  // namespace quillmark
