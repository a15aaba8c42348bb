#include "link/terminal_log.h"

#include <cerrno>

#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/path_text.h"

namespace quillmark {

namespace fs = std::filesystem;

namespace {

constexpr const char* logTitle = "Open a Communications Log File";

// What may arrive while the user is asked about a failed write.
constexpr std::size_t heldBackLimit = 1024 * 1024;

std::error_code LastError() { return {errno, std::generic_category()}; }

}  // namespace

TerminalLog::TerminalLog(Platform& machine, frmOrvalent& window)
    : platform(machine), main(window) {}

void TerminalLog::mnuOpenLog_Click() {
  const FileDialog dialog{logTitle,
                          "Log Files (*.LOG)|*.log|Text Files (*.TXT)|*.txt|All Files (*.*)|*.*"};
  for (;;) {
    const auto path = ChooseToSave(platform, FileKind::Log, dialog);
    if (!path || path->empty()) return;
    const bool exists = FileExists(*path);
    const Answer answer = exists ? AskToReplace(*path) : AskToCreate(*path);
    if (answer == (exists ? Answer::Cancel : Answer::No)) continue;
    if (Prepare(*path, exists && answer == Answer::Yes)) OpenFile(*path);
    return;
  }
}

Answer TerminalLog::AskToReplace(const fs::path& path) {
  return platform.Dialogs.Message({.Text = "Replace existing file - " + PathText(path) +
                                           "?\r\rClick 'NO' to append to the file.",
                                   .Symbol = Icon::Question,
                                   .Choice = Buttons::YesNoCancel,
                                   .Irreversible = true});
}

Answer TerminalLog::AskToCreate(const fs::path& path) {
  return platform.Dialogs.Message({.Text = PathText(path) + " does not exist.\r\rCreate it?",
                                   .Title = logTitle,
                                   .Symbol = Icon::Question,
                                   .Choice = Buttons::YesNo});
}

bool TerminalLog::Prepare(const fs::path& path, bool replace) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  // Opening one of these would wait for a reader that may never come.
  if (fs::is_fifo(status) || fs::is_socket(status)) {
    ShowError(PathText(path) + " is not a plain file.");
    return false;
  }
  if (!replace) return true;
  if (!fs::exists(status)) return true;
  if (!fs::is_regular_file(status)) {
    ShowError(PathText(path) + " is not a plain file and can't be replaced.");
    return false;
  }
  fs::remove(path, error);
  if (error) ShowError(error.message());
  return !error;
}

void TerminalLog::OpenFile(const fs::path& path) {
  mnuCloseLog_Click();
  // Each write goes to the end, whoever else writes or cuts the file.
  file.reset(std::fopen(path.c_str(), "ab"));
  if (!file) {
    ShowError(LastError().message());
    return;
  }
  // Unbuffered, so that a full disk shows at the write that meets it.
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  name = path;
  main.Caption = "Radio Terminal - " + PathText(path.filename());
  ShowOpen(true);
}

void TerminalLog::FollowName() {
  if (FileExists(name)) return;
  if (std::FILE* const anew = std::fopen(name.c_str(), "ab")) {
    std::setvbuf(anew, nullptr, _IONBF, 0);
    file.reset(anew);
  }
}

void TerminalLog::mnuCloseLog_Click() {
  file.reset();
  heldBack.clear();
  missing = 0;
  ShowOpen(false);
}

void TerminalLog::ShowOpen(bool open) {
  main.mnuOpenLog.Enabled = !open;
  main.tbr_OpenLogFile.Enabled = !open;
  main.mnuCloseLog.Enabled = open;
  main.tbr_CloseLogFile.Enabled = open;
}

void TerminalLog::Write(std::string_view text) {
  if (!file) return;
  if (heldBack.size() + text.size() <= heldBackLimit) {
    heldBack.append(text);
  } else {
    missing += text.size();
  }
  if (asking) return;
  while (file && !heldBack.empty()) {
    if (!WriteAll(heldBack)) {
      AskAboutFailure();
    } else if (missing > 0) {
      heldBack = "\r\n*** " + std::to_string(missing) + " characters are missing here ***\r\n";
      missing = 0;
    }
  }
}

void TerminalLog::AskAboutFailure() {
  asking = true;
  const Answer answer = platform.Dialogs.Message(
      {writeError.message(), ProgramTitle, Icon::Critical, Buttons::RetryCancel});
  asking = false;
  if (answer != Answer::Retry) mnuCloseLog_Click();
}

bool TerminalLog::WriteAll(std::string& text) {
  FollowName();
  errno = 0;
  const std::size_t written = std::fwrite(text.data(), 1, text.size(), file.get());
  writeError = LastError();
  text.erase(0, written);
  if (text.empty()) return true;
  std::clearerr(file.get());
  return false;
}

void TerminalLog::ShowError(std::string_view text) {
  platform.Dialogs.Message({std::string(text), ProgramTitle, Icon::Exclamation});
}

}  // namespace quillmark
