#include "start/file_opener.h"

#include "config/config_keys.h"
#include "config/config_lines.h"
#include "firmware/firmware_file.h"
#include "firmware/firmware_version.h"
#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostLines = 1000;

bool IsFirmware(const fs::path& path) {
  FirmwareFile file;
  return !file.Open(path) && ReadFirmwareHeader(file.Read(FirmwareHeaderLength)).IsHeaderRecord;
}

bool IsConfigurationFile(const fs::path& path) {
  const ConfigText text = ReadConfigText(path, mostLines);
  return text.Refusal.empty() && IsConfiguration(text.Lines);
}

std::string Quoted(const fs::path& file) { return "\"" + PathText(file.filename()) + "\""; }

}  // namespace

FileOpener::FileOpener(Platform& machine, frmOrvalent& window, FileTasks& fileTasks,
                       ConfigFileMenu& itsConfigFiles, RestoreMenu& restoreMenu,
                       FirmwareUpgrade& firmware)
    : platform(machine),
      main(window),
      tasks(fileTasks),
      configFiles(itsConfigFiles),
      restore(restoreMenu),
      upgrade(firmware) {}

void FileOpener::Wire() {
  main.OnDrop = [this](const fs::path& file) { Open(file); };
  for (std::size_t place = 0; place < main.mnuRecentFile.size(); ++place) {
    main.mnuRecentFile[place].OnClick = [this, place] {
      const auto files = RecentConfigurations(platform.Preferences);
      if (place < files.size()) Open(files[place]);
    };
  }
}

void FileOpener::Open(const fs::path& file) {
  if (RunUnderWay && RunUnderWay()) {
    platform.Desktop.Beep();
    main.FileDone.Tell(Quoted(file) + " was not opened: the radio is busy.");
  } else if (!FileExists(file)) {
    Tell(PathText(file) + " not found!");
  } else if (IsFirmware(file)) {
    OpenFirmware(file);
  } else if (IsConfigurationFile(file)) {
    OpenConfiguration(file);
  } else {
    Tell(PathText(file) + " is neither a configuration nor firmware of a radio.");
  }
}

void FileOpener::OpenConfiguration(const fs::path& file) {
  const bool mayProgram = main.cmdProgramFromFile.Enabled() && main.frQuick.Enabled();
  const bool mayCompare = main.mnuConfigRestore.Enabled() && main.mnuSpecial.Enabled();
  // Without a radio it can be looked at and changed.
  if (!mayProgram || !mayCompare) return configFiles.Open(file);
  const Answer answer = platform.Dialogs.Message(
      {.Text = "What is to be done with " + Quoted(file) +
               " ?\r\rProgram: the radio is cleared and gets the whole file.\rCompare: the file "
               "stands beside the radio in the store and restore window.",
       .Title = "Configuration File",
       .Symbol = Icon::Question,
       .Choice = Buttons::YesNoCancel,
       .Captions = {{Answer::Yes, "Program"}, {Answer::No, "Compare"}}});
  if (answer == Answer::Yes) tasks.ProgramFrom(file);
  if (answer == Answer::No) restore.Compare(file);
}

void FileOpener::OpenFirmware(const fs::path& file) {
  if (!main.mnuSendText.Enabled()) {
    return Tell("Please connect to a radio first. Then " + Quoted(file) +
                " can be loaded into it.");
  }
  const Answer answer =
      platform.Dialogs.Message({"Upgrade the radio's firmware with " + Quoted(file) + " ?",
                                "Firmware File", Icon::Exclamation, Buttons::YesNo});
  if (answer == Answer::Yes) upgrade.Load(file);
}

void FileOpener::Tell(const std::string& text) {
  platform.Dialogs.Message({text, "File", Icon::Exclamation});
}

}  // namespace quillmark
