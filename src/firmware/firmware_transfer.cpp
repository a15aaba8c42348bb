#include "firmware/firmware_transfer.h"

#include <algorithm>

#include "text/at_end.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

constexpr const char* loaderSettings = "115200,N,8,1";
constexpr Duration longestWait = Milliseconds(10);

// Why less came out of the file than it should hold.
const char* WhyShort(const FirmwareFile& file) {
  return file.Failed() ? "The file could not be read" : "The file ended";
}

}  // namespace

FirmwareTransfer::FirmwareTransfer(Platform& machine, Session& shared, frmOrvalent& window,
                                   LoaderTalk& talk)
    : platform(machine), session(shared), main(window), loader(talk) {}

void ChangeSettings(SerialPort& port, const std::string& settings) {
  try {
    port.SetSettings(settings);
  } catch (const SerialError&) {
    // An adapter that cannot go that fast stays as it is, and the loader follows it.
    return;
  }
}

void RestoreSettings(SerialPort& port, const std::string& settings) {
  ChangeSettings(port, settings);
  if (port.Settings() == settings) return;
  // A closed port takes them in any case.
  port.SetPortOpen(false);
  ChangeSettings(port, settings);
}

std::string FirmwareTransfer::Run(const std::filesystem::path& path) {
  loader.CatchUp();
  ForceSettings();
  loader.FindRate();
  loader.Erase();
  main.txtTerm.Text = "";
  if (const auto trouble = file.Open(path)) {
    platform.Dialogs.Message({*trouble, ProgramTitle, Icon::Exclamation});
    return "The file could not be opened.";
  }
  return SendFile(path);
}

void FirmwareTransfer::ForceSettings() {
  ChangeSettings(platform.MSComm1, loaderSettings);
  main.pnl_Settings.Text =
      "Settings are FORCED to " + platform.MSComm1.Settings() + " for programming.";
}

std::string FirmwareTransfer::SendFile(const std::filesystem::path& path) {
  session.BeginTransfer();
  progress = std::make_shared<frmProgram>(platform, session);
  const AtEnd stopped([this] { progress->Stop(); });
  progress->Caption = "Downloading Firmware to the radio...";
  progress->Label1.Text = "Transmitting S28 File - " + PathText(path.filename());
  progress->Show();
  return SendBlocks();
}

std::string FirmwareTransfer::SendBlocks() {
  const auto block = static_cast<std::int64_t>(platform.MSComm1.OutBufferSize());
  const std::int64_t length = file.Length();
  progress->ShowBytes(0, length, {});
  if (!loader.AwaitErased()) return "The transfer was cancelled before it began.";
  loader.Program();
  main.ShowCommStatus = false;
  // One block at most stands in the buffer, and no command in front of it.
  AwaitEmptyBuffer();
  loader.AwaitTaking();
  const Duration began = platform.Events.Now();
  std::int64_t& sent = bytesSent;
  const auto missing = [&](const std::string& why) {
    return why + " after " + std::to_string(sent) + " of " + std::to_string(length) + " bytes.";
  };
  while (sent < length && !session.TransferStop) {
    // The line stands still up to the output, so nothing is shown before it.
    const std::int64_t wanted = std::min(block, length - sent);
    const std::string bytes = file.Read(static_cast<std::size_t>(wanted));
    if (!bytes.empty() && !SendBlock(bytes)) return missing("The port failed");
    // The last block does not move the bar.
    if (length - sent > block) progress->ProgressBar1.Value = static_cast<int>(100 * sent / length);
    progress->ShowBytes(sent, length, platform.Events.Now() - began);
    sent += static_cast<std::int64_t>(bytes.size());
    if (!bytes.empty()) ++blocksSent;
    // A file that was cut short meanwhile: its rest will not come, and the loader says so.
    if (static_cast<std::int64_t>(bytes.size()) < wanted) return missing(WhyShort(file));
    AwaitEmptyBuffer();
  }
  if (length == 0) return "The file is empty.";
  return sent < length ? missing("The transfer was cancelled") : "";
}

std::string FirmwareTransfer::Sent() const {
  return std::to_string(bytesSent) + " bytes were sent, in " + std::to_string(blocksSent) +
         (blocksSent == 1 ? " block." : " blocks.");
}

bool FirmwareTransfer::SendBlock(const std::string& block) {
  try {
    platform.MSComm1.Output(block);
    return true;
  } catch (const SerialError& error) {
    platform.Dialogs.Message(
        {.Text = error.what(), .Symbol = Icon::Exclamation, .Details = error.Details});
    return false;
  }
}

// The whole pacing: the next block follows when this one has left.
void FirmwareTransfer::AwaitEmptyBuffer() {
  platform.Events.Pump();
  while (platform.MSComm1.OutBufferCount() != 0 && !session.TransferStop) {
    platform.Events.Wait(longestWait);
  }
}

}  // namespace quillmark
