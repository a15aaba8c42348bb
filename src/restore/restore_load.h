#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "restore/restore_controls.h"
#include "session/session.h"

namespace quillmark {

// Reads a configuration file into the window's new column, a line each tenth of a second, and
// enables the boxes of the rows that it holds. The radio is not touched. Everything given to it
// outlives it.
class RestoreLoader {
 public:
  RestoreLoader(Platform& platform, Session& session, RestoreControls& controls, const Form& window,
                std::span<const Setting> settings);

  // Ends at once when the window is closed meanwhile.
  void OpenConfiguration();
  void Load(const std::filesystem::path& path);

 private:
  // Nothing when the user cancels.
  std::optional<std::filesystem::path> ChooseFile();
  void Prepare(const std::filesystem::path& path);
  void TakeLines(const std::vector<std::string>& lines);
  void ShowOlderFileNotice();
  void TakeLine(const std::string& line);
  void TakeLowestAddress(RestoreRowControls& row, const std::string& line);
  void TakeHighestAddress(RestoreRowControls& row, const std::string& line);
  void MapRange(const std::string& highest);
  void TakeText(RestoreRowControls& row, const std::string& line);

  Platform& platform;
  Session& session;
  RestoreControls& controls;
  const Form& window;
  std::span<const Setting> settings;
  std::string XminText;
  std::string XmapBits;
};

}  // namespace quillmark
