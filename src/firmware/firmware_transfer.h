#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "app/frmOrvalent.h"
#include "firmware/firmware_file.h"
#include "firmware/frmProgram.h"
#include "firmware/loader_talk.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Sends a firmware file to a radio that is in its loader: changes the line to the loader's rate,
// has the memory erased, and sends the file byte for byte, one block at a time. What the loader
// makes of it, it says afterwards. The firmware upgrade makes one for each run. Throws SerialError.
class FirmwareTransfer {
 public:
  FirmwareTransfer(Platform& platform, Session& session, frmOrvalent& main, LoaderTalk& loader);

  // Gives a sentence on what is missing; "" when the whole file was sent.
  std::string Run(const std::filesystem::path& path);
  // A sentence on what was sent.
  std::string Sent() const;

 private:
  void ForceSettings();
  std::string SendFile(const std::filesystem::path& path);
  std::string SendBlocks();
  bool SendBlock(const std::string& block);
  void AwaitEmptyBuffer();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  LoaderTalk& loader;
  std::shared_ptr<frmProgram> progress;
  FirmwareFile file;
  std::int64_t bytesSent = 0;
  int blocksSent = 0;
};

// Changes the line's rate. A port that refuses is no reason to stop.
void ChangeSettings(SerialPort& port, const std::string& settings);
// The same, but a port that refuses is closed: then it takes the rate.
void RestoreSettings(SerialPort& port, const std::string& settings);

}  // namespace quillmark
