#include "config/editor/frmConfigFile.h"

#include <algorithm>
#include <system_error>

#include "config/config_lines.h"
#include "config/config_values.h"
#include "config/editor/config_file.h"
#include "config/editor/preset_saving.h"
#include "config/frmComparison.h"
#include "config/presets/preset_file.h"
#include "config/replaced_file.h"
#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr const char* title = "Configuration File";
constexpr const char* filter = "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*";

std::string Quoted(const fs::path& file) { return "\"" + PathText(file.filename()) + "\""; }

// "site.txt" in that folder, or "site-2.txt", "site-3.txt", ... where something stands there.
fs::path FreeName(const fs::path& folder, const fs::path& name) {
  std::error_code ignored;
  fs::path free = folder / name;
  for (int number = 2; fs::exists(fs::symlink_status(free, ignored)); ++number) {
    free = folder / name.stem();
    free += "-" + std::to_string(number);
    free += name.extension();
  }
  return free;
}

// "Of a radio with firmware 3.2.0.", of the three characters that a revision is known by.
std::string FirmwareOf(const Revision& revision) {
  const std::string& text = revision.Text;
  if (text.size() != 3) return "The file names no firmware revision.";
  return std::string("Of a radio with firmware ") + text[0] + "." + text[1] + "." + text[2] + ".";
}

}  // namespace

frmConfigFile::frmConfigFile(Platform& machine)
    : Form("frmConfigFile"),
      ConfigRows(static_cast<Form&>(*this)),
      tbr_Open(*this, this, "tbr_Open", "Open..."),
      tbr_Save(*this, this, "tbr_Save", "Save"),
      tbr_SaveAs(*this, this, "tbr_SaveAs", "Save As..."),
      tbr_SavePreset(*this, this, "tbr_SavePreset", "Save As Preset..."),
      tbr_Compare(*this, this, "tbr_Compare", "Compare With..."),
      lblFile(*this, this, "lblFile"),
      lblFirmware(*this, this, "lblFirmware"),
      lblOutcome(*this, this, "lblOutcome"),
      CloseButton(*this, this, "CloseButton", "Close"),
      platform(machine) {
  Caption = title;
  tbr_Open.ToolTip = "Opens another configuration file (Ctrl+O)";
  tbr_Save.ToolTip = "Saves the file (Ctrl+S)";
  tbr_SaveAs.ToolTip = "Saves to another file (Ctrl+Shift+S)";
  tbr_SavePreset.ToolTip = "Makes a preset of it";
  tbr_Compare.ToolTip = "Sets another file beside it (Ctrl+D)";
  Wire();
}

void frmConfigFile::Wire() {
  tbr_Open.OnClick = [this] { tbr_Open_Click(); };
  tbr_Save.OnClick = [this] { Save(); };
  tbr_SaveAs.OnClick = [this] { SaveAs(); };
  tbr_SavePreset.OnClick = [this] { tbr_SavePreset_Click(); };
  tbr_Compare.OnClick = [this] { tbr_Compare_Click(); };
  CloseButton.OnClick = [this] { Form_Close(); };
  for (ConfigRow& row : Rows) {
    row.Value.OnChange = [this, &row] { Edit(row); };
  }
}

bool frmConfigFile::Open(const fs::path& file) {
  ConfigFile read = ReadConfigFile(file);
  if (!read.Refusal.empty()) {
    ShowRefusal(platform.Dialogs, read.Refusal);
    return false;
  }
  path = file;
  bytes = std::move(read.Bytes);
  config = EditedConfig(bytes);
  lblOutcome.Text = "";
  ShowValues(config);
  ShowState();
  Note();
  return true;
}

// Presets have entries of their own, copies a window.
void frmConfigFile::Note() {
  if (path.parent_path() == PresetFolder(platform.Files) || IsKeptCopy(path)) return;
  NoteConfiguration(platform.Preferences, path);
}

void frmConfigFile::Edit(const ConfigRow& row) {
  config.SetValue(row.What, row.Value.Text());
  lblOutcome.Text = "";
  Judge(config);
  ShowState();
}

void frmConfigFile::ShowState() {
  Caption = PathText(path.filename()) + (config.Changed() ? " (changed) - " : " - ") + title;
  lblFile.Text = PathText(path);
  lblFirmware.Text = FirmwareOf(config.FileRevision());
  tbr_Save.Enabled = config.Changed();
}

void frmConfigFile::Form_Close() {
  if (MayLeave()) Unload();
}

void frmConfigFile::Form_Drop(const fs::path& file) {
  if (MayLeave()) Open(file);
}

fs::path frmConfigFile::KeepUnsaved() const {
  if (!config.Changed()) return {};
  fs::path kept = FreeName(platform.Files.Data() / "Unsaved", path.filename());
  try {
    std::error_code ignored;
    fs::create_directories(kept.parent_path(), ignored);
    fs::permissions(kept.parent_path(), fs::perms::owner_all, ignored);
    WriteConfigFile(kept, config.Bytes(), platform.Files.Data());
  } catch (const FileError&) {
    return {};
  }
  return kept;
}

bool frmConfigFile::MayLeave() {
  // On the way out every box answers by itself.
  if (!config.Changed() || platform.Events.Quitting()) return true;
  const Answer answer =
      platform.Dialogs.Message({.Text = "Save the changes to " + Quoted(path) + " ?",
                                .Title = title,
                                .Symbol = Icon::Question,
                                .Choice = Buttons::YesNoCancel,
                                .Captions = {{Answer::Yes, "Save"}, {Answer::No, "Do Not Save"}}});
  return answer == Answer::No || (answer == Answer::Yes && Save());
}

void frmConfigFile::tbr_Open_Click() {
  if (!MayLeave()) return;
  const auto file = ChooseToOpen(platform, FileKind::Configuration,
                                 {.Title = "Open Configuration", .Filter = filter});
  if (file) Open(*file);
}

bool frmConfigFile::Save() {
  return IsKeptCopy(path) ? SaveAs() : ConfirmOverwrite() && SaveTo(path);
}

bool frmConfigFile::IsKeptCopy(const fs::path& file) const {
  std::error_code ignored;
  const fs::path kept = fs::weakly_canonical(platform.Files.Data() / "radios", ignored);
  const fs::path whole = fs::weakly_canonical(file, ignored);
  return !kept.empty() && std::ranges::mismatch(kept, whole).in1 == kept.end();
}

// Another program may have written it meanwhile, or the one that programs presets.
bool frmConfigFile::ConfirmOverwrite() {
  const ConfigFile now = ReadConfigFile(path);
  if (now.Bytes == bytes || !FileExists(path)) return true;
  const Answer answer = platform.Dialogs.Message(
      {.Text = Quoted(path) + " has been changed by another program since it was opened.\r\r"
                              "Replace it ?",
       .Title = title,
       .Symbol = Icon::Exclamation,
       .Choice = Buttons::YesNo,
       .Irreversible = true});
  return answer == Answer::Yes;
}

bool frmConfigFile::SaveTo(const fs::path& file) {
  const std::string next = config.Bytes();
  try {
    WriteConfigFile(file, next, platform.Files.Data());
  } catch (const FileError& error) {
    platform.Dialogs.Message(
        {std::string("The configuration was not saved.\r\n\r\n") + error.what(), "File Error",
         Icon::Exclamation});
    return false;
  }
  path = file;
  bytes = next;
  config = EditedConfig(bytes);
  ShowValues(config);
  ShowState();
  lblOutcome.Text = "Saved.";
  return true;
}

bool frmConfigFile::SaveAs() {
  const auto file = ChooseToSave(
      platform, FileKind::Configuration,
      {.Title = "Save Configuration As", .Filter = filter, .Name = PathText(path.filename())});
  if (!file || !MaySaveAs(*file) || !SaveTo(*file)) return false;
  Note();
  return true;
}

bool frmConfigFile::MaySaveAs(const fs::path& file) {
  if (IsKeptCopy(file)) {
    platform.Dialogs.Message(
        {"The folders of the radio history hold copies as they were kept.\r\r"
         "Please choose another folder.",
         title, Icon::Exclamation});
    return false;
  }
  if (!FileExists(file)) return true;
  const Answer answer = platform.Dialogs.Message({.Text = Quoted(file) + " exists. Replace it ?",
                                                  .Title = title,
                                                  .Symbol = Icon::Question,
                                                  .Choice = Buttons::YesNo,
                                                  .Irreversible = true});
  return answer == Answer::Yes;
}

void frmConfigFile::tbr_SavePreset_Click() {
  const auto slot = SaveAsPreset(platform, config.Lines());
  if (!slot) return;
  lblOutcome.Text = "Saved as preset " + std::to_string(*slot + 1) + ".";
  if (PresetsChanged) PresetsChanged();
}

void frmConfigFile::tbr_Compare_Click() {
  const auto file =
      ChooseToOpen(platform, FileKind::Configuration, {.Title = "Compare With", .Filter = filter});
  if (!file) return;
  const ConfigFile read = ReadConfigFile(*file);
  if (!read.Refusal.empty()) return ShowRefusal(platform.Dialogs, read.Refusal);
  platform.Windows.ShowModal(
      std::make_shared<frmComparison>(
          PathText(path.filename()) + (config.Changed() ? " (changed)" : ""),
          PathText(file->filename()),
          CompareValues(ValuesOf(config.Lines()), ValuesOf(EditedConfig(read.Bytes).Lines()))),
      *this);
}

}  // namespace quillmark
