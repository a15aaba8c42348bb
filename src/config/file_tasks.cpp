#include "config/file_tasks.h"

#include <system_error>

#include "config/temp_folder.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

// A text of the radio as a file's name: only letters, digits, blanks and dashes.
std::string NameText(std::string text) {
  std::erase_if(text, [](char c) {
    return !((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
             c == ' ' || c == '-' || c == '_');
  });
  return std::string(Trim(text));
}

}  // namespace

FileTasks::FileTasks(Platform& machine, frmOrvalent& window, DirectRun& itsRun,
                     ConfigSaver& itsSaver, ConfigSender& itsSender)
    : platform(machine), main(window), run(itsRun), saver(itsSaver), sender(itsSender) {}

void FileTasks::Wire() {
  main.cmdSaveToFile.OnClick = [this] { cmdSaveToFile_Click(); };
  main.cmdProgramFromFile.OnClick = [this] { RestoreConfiguration(); };
  main.cmdPrint.OnClick = [this] { cmdPrint_Click(); };
}

void FileTasks::cmdSaveToFile_Click() {
  if (!platform.MSComm1.PortOpen()) return;
  run.WhenFree(main.cmdSaveToFile, [this] {
    const QuickTask task(run);
    saver.WriteConfigToFile({}, false);
    run.ReadRadioAgain();
  });
}

void FileTasks::RestoreConfiguration() {
  if (!run.MayStart()) return;
  const auto path = platform.Dialogs.OpenFile(
      {"Radio Configuration Restore", "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*"});
  if (!path) return;
  bool mayBeSent = false;
  sender.LoadConfigLines(*path, false, mayBeSent);
  if (!mayBeSent) return;
  run.WhenFree(main.cmdProgramFromFile, [this, path = *path] {
    const QuickTask task(run);
    run.ShowTitle("RESTORING.");
    sender.ProgramFromFile(path);
  });
}

// Named after the radio's serial number, behind its word.
fs::path FileTasks::ReportFile() const {
  constexpr std::ptrdiff_t longestName = 100;
  const std::string number =
      Mid(main.At(SettingId::SerialNumber).Text(), 4, longestName).value_or("");
  const std::string name = NameText(number);
  return TempFolder(platform.Files) / ((name.empty() ? "config" : name) + ".txt");
}

void FileTasks::cmdPrint_Click() {
  run.WhenFree(main.cmdPrint, [this] { PrintReport(); });
}

void FileTasks::PrintReport() {
  std::error_code ignored;
  fs::create_directories(TempFolder(platform.Files), ignored);
  const fs::path report = ReportFile();
  fs::remove(report, ignored);
  const QuickTask task(run);
  saver.ReportWritten = false;
  saver.WriteConfigToFile(report, true);
  if (saver.ReportWritten) {
    run.ShowStatus("Printing");
    if (const auto target = platform.Dialogs.ChoosePrinter(report)) {
      platform.Desktop.Print(*target, report, "Quillmark SS radio configuration");
    }
  }
  run.ReadRadioAgain();
}

}  // namespace quillmark
