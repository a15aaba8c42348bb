#include "restore/restore_load.h"

#include "config/config_keys.h"
#include "config/config_lines.h"
#include "platform/utilities.h"
#include "restore/restore_select.h"
#include "session/chosen_files.h"
#include "text/at_end.h"
#include "text/numbers.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::size_t mostLines = 1000;
constexpr int linePause = 100;  // ms
constexpr std::size_t mapSize = 32;
// A range of extension addresses becomes a map from this revision on; an unknown one counts as it.
constexpr RevisionGate mapsRanges = from100;
constexpr RevisionGate newCommands = from200;

std::string From(const std::string& line, std::ptrdiff_t position) {
  return Mid(line, position, static_cast<std::ptrdiff_t>(line.size())).value_or("");
}

}  // namespace

RestoreLoader::RestoreLoader(Platform& machine, Session& shared, RestoreControls& itsControls,
                             const Form& itsWindow, std::span<const Setting> itsSettings)
    : platform(machine),
      session(shared),
      controls(itsControls),
      window(itsWindow),
      settings(itsSettings) {}

void RestoreLoader::OpenConfiguration() {
  const auto path = ChooseFile();
  if (path && window.Loaded()) Load(*path);
}

void RestoreLoader::Load(const std::filesystem::path& path) {
  const ConfigText file = ReadConfigText(path, mostLines);
  if (!file.Refusal.empty()) return ShowRefusal(platform.Dialogs, file.Refusal);
  NoteConfiguration(platform.Preferences, path);
  {
    const auto underWay = Raised(controls.Loading);
    Prepare(path);
    TakeLines(file.Lines);
  }
  if (window.Loaded()) controls.ShowDifferences();
}

void RestoreLoader::TakeLines(const std::vector<std::string>& lines) {
  bool told = false;
  for (std::size_t i = 0; i < lines.size() && window.Loaded(); ++i) {
    // The firmware's part number stands above its revision.
    if (Holds(lines[i], "77-1234")) {
      if (++i == lines.size()) return;
      if (!told && lines[i].starts_with('1') &&
          newCommands.HoldsIfUnknown(session.SoftwareRevision)) {
        told = true;
        ShowOlderFileNotice();
      }
    }
    TakeLine(lines[i]);
    controls.ShowDifferences();
    WaitMilliseconds(platform.Events, linePause);
    platform.Events.Pump();
  }
}

std::optional<std::filesystem::path> RestoreLoader::ChooseFile() {
  for (;;) {
    auto path = ChooseToOpen(
        platform, FileKind::Configuration,
        {"Configuration File Selection", "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*"});
    if (!path || FileExists(*path) || !window.Loaded()) return path;
    platform.Dialogs.Message({PathText(*path) + " not found!", ProgramTitle, Icon::Exclamation});
  }
}

void RestoreLoader::Prepare(const std::filesystem::path& path) {
  XminText.clear();
  XmapBits.assign(mapSize, '0');
  controls.tbr_ProgramRadio.Enabled = true;
  for (RestoreRowControls& row : controls.Rows) {
    row.New.Text = NoValue;
    row.EnableBox(false);
  }
  controls.CheckAllButton.Enabled = true;
  controls.UnCheckAllButton.Enabled = true;
  controls.TickDifferingButton.Enabled = true;
  controls.lblOutcome.Text = "";
  controls.FileLoaded = true;
  controls.ShowDifferences();
  controls.FileSettingsLabel.Text = "Settings in file\r" + PathText(path.filename()) + ":";
}

void RestoreLoader::ShowOlderFileNotice() {
  platform.Dialogs.Message(
      {"Notice: The configuration file you opened was created by an earlier sofware version then "
       "the one in the radio.\rSome of the commands have changed and either will not be "
       "available,\ror will be modified to be compatible with the current software.",
       "Warning:", Icon::Information});
}

void RestoreLoader::TakeLine(const std::string& line) {
  const auto setting = SettingOfLine(line, settings);
  if (!setting) return;
  RestoreRowControls& row = controls.At(*setting);
  if (*setting == SettingId::XMIN) return TakeLowestAddress(row, line);
  if (*setting == SettingId::XMAX) return TakeHighestAddress(row, line);
  if (!row.Row.Loaded.HoldsIfUnknown(session.SoftwareRevision)) return;
  EnableLoadedRow(controls, row);
  TakeText(row, line);
}

void RestoreLoader::TakeLowestAddress(RestoreRowControls& row, const std::string& line) {
  if (mapsRanges.HoldsIfUnknown(session.SoftwareRevision)) {
    XminText = From(line, 6);
    return;
  }
  EnableLoadedRow(controls, row);
  TakeText(row, line);
}

void RestoreLoader::TakeHighestAddress(RestoreRowControls& row, const std::string& line) {
  if (mapsRanges.HoldsIfUnknown(session.SoftwareRevision)) return MapRange(From(line, 6));
  EnableLoadedRow(controls, row);
  TakeText(row, line);
}

// A range that can't be mapped leaves the row as it is.
void RestoreLoader::MapRange(const std::string& highest) {
  if (!XminText.empty()) {
    const auto from = NumericValue(XminText);
    const auto to = NumericValue(highest);
    if (!from || !to || *from < 0 || *to >= static_cast<double>(mapSize)) return;
    const double last = RoundHalfEven(*to);
    for (double i = RoundHalfEven(*from); i <= last; ++i) {
      const auto bit = static_cast<std::size_t>(i);
      if (bit < mapSize) XmapBits[mapSize - 1 - bit] = '1';
    }
  }
  RestoreRowControls& map = controls.At(SettingId::XMAP);
  map.New.Text = "XMAP " + BinToHex(XmapBits);
  map.EnableBox(true);
}

void RestoreLoader::TakeText(RestoreRowControls& row, const std::string& line) {
  switch (row.Row.Text) {
    case RestoreForm::Owner:
      row.New.Text = From(line, 5);
      return;
    case RestoreForm::AlarmMask:
      row.New.Text = "MASK: " + From(line, 6);
      return;
    case RestoreForm::Switched:
      // The second of its two lines tells whether it is switched on.
      if (row.New.Text() != NoValue) {
        row.New.Text = row.New.Text() + (Holds(line, "ON") ? " (ON)" : " (OFF)");
        return;
      }
      break;
    case RestoreForm::Line:
    case RestoreForm::AlarmSense:
      break;
  }
  row.New.Text = line;
}

}  // namespace quillmark
