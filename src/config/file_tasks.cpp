#include "config/file_tasks.h"

#include <system_error>

#include "config/suggested_name.h"
#include "config/temp_folder.h"
#include "session/chosen_files.h"

namespace quillmark {

namespace fs = std::filesystem;

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
    main.FileDone.Drop();
    {
      const QuickTask task(run);
      saver.WriteConfigToFile({}, false);
      run.ReadRadioAgain();
    }
    if (!saver.WrittenTo.empty()) Note(saver.WrittenTo);
    if (!saver.Outcome.empty()) main.FileDone.Tell(saver.Outcome);
  });
}

void FileTasks::RestoreConfiguration() {
  if (!run.MayStart()) return;
  const auto path =
      ChooseToOpen(platform, FileKind::Configuration,
                   {"Radio Configuration Restore", "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*"});
  if (path) ProgramFrom(*path);
}

void FileTasks::ProgramFrom(const fs::path& path) {
  if (!run.MayStart()) return;
  bool mayBeSent = false;
  sender.LoadConfigLines(path, false, mayBeSent);
  if (!mayBeSent || !sender.ConfirmPlan()) return;
  Note(path);
  run.WhenFree(main.cmdProgramFromFile, [this, path] {
    const QuickTask task(run);
    run.KeepBefore("programming a file");
    run.ShowTitle("RESTORING.");
    sender.ProgramFromFile(path);
  });
}

void FileTasks::Note(const fs::path& configuration) {
  NoteConfiguration(platform.Preferences, configuration);
  main.ShowRecent(RecentConfigurations(platform.Preferences));
}

fs::path FileTasks::ReportFile() const {
  const std::string name = SerialName(main.At(SettingId::SerialNumber).Text());
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
    if (const auto target = ChooseToPrint(platform, report)) {
      platform.Desktop.Print(*target, report, "Quillmark SS radio configuration");
    }
  }
  run.ReadRadioAgain();
}

}  // namespace quillmark
