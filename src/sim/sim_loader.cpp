#include "sim/sim_loader.h"

#include "sim/sim_words.h"

namespace quillmark::sim {

void SimLoader::Enter() {
  version.clear();
  erased = false;
  receiving = false;
}

void SimLoader::SetFaults(std::int64_t stallAtByte, std::int64_t resetAtByte) {
  options.StallAtByte = stallAtByte;
  options.ResetAtByte = resetAtByte;
}

RadioAnswer SimLoader::Execute(std::string_view line) {
  const std::string word = Lowered(Trimmed(line));
  if (word == "erase") {
    erased = true;
    version.clear();
    return {.Text = "ERASED", .Busy = options.EraseTime};
  }
  if (word == "program") {
    if (!erased) return Says("NOT ERASED");
    image = {};
    transfer = {};
    receiving = true;
    return {.Text = "SEND S-RECORDS", .Prompt = false};
  }
  if (word == "exit") {
    if (version.empty()) return Says("NO FIRMWARE");
    return {
        .Text = "STARTING " + version, .Prompt = false, .Then = RadioAnswer::Next::StartFirmware};
  }
  return Says("INVALID COMMAND");
}

std::optional<std::string> SimLoader::Take(Time at, char byte) {
  if (transfer.Bytes == 0) transfer.First = at;
  transfer.Last = at;
  ++transfer.Bytes;
  image.Take(byte);
  if (!image.Finished()) return std::nullopt;
  return Verdict(image.Fault());
}

std::string SimLoader::Abort(std::string_view reason) {
  return Verdict(image.Fault().empty() ? reason : std::string_view(image.Fault()));
}

std::optional<Time> SimLoader::Deadline() const {
  if (!receiving || transfer.Bytes == 0) return std::nullopt;
  return transfer.Last + options.SilenceTime;
}

std::string SimLoader::Verdict(std::string_view fault) {
  receiving = false;
  erased = false;
  transfer.Ended = true;
  transfer.Sound = fault.empty();
  transfer.Records = image.Records();
  transfer.DataBytes = image.DataBytes();
  if (!fault.empty()) return "PROGRAMMING FAILED: " + std::string(fault);
  version = image.Version();
  return "PROGRAMMED OK";
}

}  // namespace quillmark::sim
