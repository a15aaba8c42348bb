#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "app/frmOrvalent.h"
#include "platform/platform.h"

namespace quillmark {

// The copy of the terminal's text in a file. There is one, for the main window.
class TerminalLog {
 public:
  TerminalLog(Platform& platform, frmOrvalent& main);

  void mnuOpenLog_Click();
  void mnuCloseLog_Click();

  bool Open() const { return file != nullptr; }
  // Writes the text when a log is open. When that fails, the user may try again as often as they
  // like, or close the log; text that arrives while they are asked is written after it. What goes
  // beyond 1 MiB is lost, and the log says how much.
  void Write(std::string_view text);

 private:
  // Closes the file when the log lets go of it.
  struct Closer {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };

  Answer AskToReplace(const std::filesystem::path& path);
  Answer AskToCreate(const std::filesystem::path& path);
  // Makes room for a new file or keeps the old one to append to; false when it can't be done.
  bool Prepare(const std::filesystem::path& path, bool replace);
  void OpenFile(const std::filesystem::path& path);
  // Takes away what was written from the front of `text`; false when the system failed to write
  // all.
  bool WriteAll(std::string& text);
  void AskAboutFailure();
  // A log that was deleted meanwhile goes on in a new file of its name.
  void FollowName();
  void ShowError(std::string_view text);
  void ShowOpen(bool open);

  Platform& platform;
  frmOrvalent& main;
  std::unique_ptr<std::FILE, Closer> file;
  std::error_code writeError;
  bool asking = false;
  std::filesystem::path name;
  std::string heldBack;     // still to be written
  std::size_t missing = 0;  // characters that heldBack had no room for
};

}  // namespace quillmark
