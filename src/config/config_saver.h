#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "config/direct_run.h"
#include "config/replaced_file.h"
#include "platform/platform.h"

namespace quillmark {

struct SavedSetting;

// Writes the connected radio's configuration into a file, one setting after the other, each cut out
// of the radio's reply as it came. The buttons for files, presets and the report call it.
// Everything given to it outlives it.
class ConfigSaver {
 public:
  ConfigSaver(Platform& platform, frmOrvalent& main, Connection& connection, DirectRun& run);

  // Asks the user for the file when `path` is empty. A report begins with two empty lines and shows
  // other words. A run that fails leaves the file cut off at the line reached, switches the radio's
  // echo on again and has the radio read anew.
  void WriteConfigToFile(std::filesystem::path path, bool report);

  bool ReportWritten = false;  // the last run came to its end

 private:
  // False when the user goes back on it.
  bool ChooseFile(std::filesystem::path& path);
  void Write(const std::filesystem::path& path, bool report);
  void WriteHead(ReplacedFile& file, bool report);
  void WakeRadio();
  void WriteSettings(ReplacedFile& file, bool report);
  void WriteSetting(ReplacedFile& file, const SavedSetting& row);
  // Waits for the prompt behind a reply of which `isReply` holds.
  void AwaitPrompt(const std::function<bool()>& isReply,
                   const std::function<void()>& whileSilent = nullptr);
  void SwitchEchoOn();
  void Fail(const std::string& why);

  Platform& platform;
  frmOrvalent& main;
  Connection& connection;
  DirectRun& run;
  std::string modeLetter;
};

}  // namespace quillmark
