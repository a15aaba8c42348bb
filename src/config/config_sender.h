#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "app/frmOrvalent.h"
#include "config/direct_run.h"
#include "conversation/conversation.h"
#include "platform/platform.h"

namespace quillmark {

// Takes a configuration file into memory, and sends what is in memory to the radio line by line,
// each awaited up to the radio's prompt. Programming from a file, presets and the roles of a new
// radio stand on it. Everything given to it outlives it.
class ConfigSender {
 public:
  ConfigSender(Platform& platform, const Session& session, frmOrvalent& main,
               Connection& connection, Conversation& radio, DirectRun& run);

  // The lines of the last file loaded, from index 0; 101 at most.
  std::vector<std::string> ConfigLines;

  // With `defaults` the path is that of the default set which clears a radio. `result` tells
  // whether ConfigLines holds a file that may be sent. A file that is missing or refused empties
  // them.
  void LoadConfigLines(const std::filesystem::path& path, bool defaults, bool& result);

  // Tells what ConfigLines, those of a file, will change at the radio, and asks whether to go on. A
  // user who wants no such question has agreed.
  bool ConfirmPlan();

  // Sends ConfigLines. With `checkUnit` the user is asked for the unit number first, line by line
  // that holds it. A run that fails ends in a read of the radio and returns as if it had ended.
  void SendConfigLines(bool checkUnit);

  // A radio in setup mode would refuse what is sent; it leaves that mode first. Throws SerialError
  // and RunFailed.
  void LeaveSetupMode();

  // The whole of a restore, from DirectPortMode on: clears the radio with the default set, then
  // sends the file.
  void ProgramFromFile(const std::filesystem::path& path);

 private:
  std::filesystem::path DefaultSet() const;
  void SendLines(bool checkUnit);
  void AwaitLine(const std::string& line);
  void AwaitPrompt();
  void Pause();
  void CheckUnit(std::string& line);

  Platform& platform;
  const Session& session;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  DirectRun& run;
};

}  // namespace quillmark
