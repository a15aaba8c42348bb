#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "config/editor/config_rows.h"
#include "config/editor/edited_config.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "platform/platform.h"

namespace quillmark {

// A configuration file or a preset, setting by setting, without a radio: each value can be changed,
// and is marked when radios don't take it. Saves to the file, to another one, or as a preset.
// Modal; asks before changes are lost. Everything given to it outlives it.
class frmConfigFile : public Form, public ConfigRows {
 public:
  explicit frmConfigFile(Platform& platform);

  ToolButton tbr_Open, tbr_Save, tbr_SaveAs, tbr_SavePreset, tbr_Compare;
  Label lblFile;  // where it is
  Label lblFirmware;
  Label lblOutcome;  // what has become of the last save
  Button CloseButton;

  // Shows a file in the place of the one that is shown. False, with a box, when it is refused.
  bool Open(const std::filesystem::path& file);

  // The program ends: writes what has not been saved to a file of its own in "Unsaved" in the
  // user's data folder. That file; empty when nothing was changed, or it could not be written.
  std::filesystem::path KeepUnsaved() const;

  // Told when a preset has been written. May be empty.
  std::function<void()> PresetsChanged;

 protected:
  void Form_Close() override;
  void Form_Drop(const std::filesystem::path& file) override;

 private:
  void Wire();
  void Edit(const ConfigRow& row);
  void ShowState();
  // A copy of the radio history stays as it was kept.
  bool IsKeptCopy(const std::filesystem::path& file) const;
  // Among the configurations that were used last.
  void Note();
  void tbr_Open_Click();
  // False when it was not saved.
  bool SaveAs();
  bool MaySaveAs(const std::filesystem::path& file);
  void tbr_SavePreset_Click();
  void tbr_Compare_Click();
  // Saves or drops the changes as the user wants it. False when they go back on it.
  bool MayLeave();
  bool Save();
  bool SaveTo(const std::filesystem::path& file);
  bool ConfirmOverwrite();

  Platform& platform;
  EditedConfig config;
  std::string bytes;  // of the file, as it was read or saved
  std::filesystem::path path;
};

}  // namespace quillmark
