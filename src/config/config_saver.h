#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "config/direct_run.h"
#include "config/replaced_file.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Writes the connected radio's configuration into a file, one setting after the other, each cut out
// of the radio's reply as it came. The buttons for files, presets and the report call it.
// Everything given to it outlives it.
class ConfigSaver {
 public:
  ConfigSaver(Platform& platform, frmOrvalent& main, Connection& connection, Conversation& radio,
              DirectRun& run);

  // Asks the user for the file when `path` is empty. A report begins with two empty lines and shows
  // other words. A run that fails switches the radio's echo on again and has the radio read anew.
  // It leaves the file cut off at the line reached; where the file itself failed, a box tells why
  // and the old file stands as it stood.
  void WriteConfigToFile(std::filesystem::path path, bool report);

  bool ReportWritten = false;  // the last run came to its end
  // What the last run has put into its file, as a sentence; empty when it has not begun one, or a
  // box has told.
  std::string Outcome;
  std::filesystem::path WrittenTo;  // the file that the last run completed, or empty

 private:
  // False when the user goes back on it.
  bool ChooseFile(std::filesystem::path& path);
  void Write(const std::filesystem::path& path, bool report);
  void WriteLines(ReplacedFile& file, bool report);
  void WriteHead(ReplacedFile& file, bool report);
  // The radio's reply to "ser", called for until there is one.
  std::optional<std::string> ReadSerialNumber(bool report);
  // Sends carriage returns until the radio answers; tells whether it had to.
  bool CallRadio();
  void WriteSettings(ReplacedFile& file, bool report);
  void WriteSetting(ReplacedFile& file, const Setting& row);
  // The reply's text; nothing where this radio's revision lacks the setting.
  std::optional<std::string> ReadSetting(const Setting& row);
  void SwitchEchoOn();
  void Fail(const std::string& why);

  Platform& platform;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  DirectRun& run;
  Revision revision;  // of the radio that is being saved
  std::string modeLetter;
  std::size_t written = 0;   // settings in the file
  std::size_t expected = 0;  // with those to come that this radio has; 0: its mode is not known yet
};

}  // namespace quillmark
