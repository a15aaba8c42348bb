#pragma once

#include <filesystem>

#include "app/frmOrvalent.h"
#include "config/config_saver.h"
#include "config/config_sender.h"
#include "config/direct_run.h"
#include "platform/platform.h"

namespace quillmark {

// The actions of the quick-task view on configurations: save to a file, program from one, print.
// Everything given to it outlives it.
class FileTasks {
 public:
  FileTasks(Platform& platform, frmOrvalent& main, DirectRun& run, ConfigSaver& saver,
            ConfigSender& sender);

  // Joins the buttons to their handlers.
  void Wire();
  // What "PROGRAM RADIO FROM FILE" does with the file that was chosen.
  void ProgramFrom(const std::filesystem::path& path);

 private:
  void cmdSaveToFile_Click();
  void RestoreConfiguration();
  void cmdPrint_Click();
  void Note(const std::filesystem::path& configuration);
  void PrintReport();
  // Named after the radio's serial number.
  std::filesystem::path ReportFile() const;

  Platform& platform;
  frmOrvalent& main;
  DirectRun& run;
  ConfigSaver& saver;
  ConfigSender& sender;
};

}  // namespace quillmark
