#include "sim/line_faults.h"

#include <chrono>

namespace quillmark::sim {

namespace {

constexpr FaultOption options[] = {
    {"--silent-from", &LineFaults::SilentFrom,
     "neither echo nor reply from the Nth command on; 1 is a dead radio"},
    {"--silent-until", &LineFaults::SilentUntil, "... up to the Nth command; 0: for good"},
    {"--drop-to-host", &LineFaults::DropToHost, "lose the Nth byte from the radio"},
    {"--garble-to-host", &LineFaults::GarbleToHost, "change the Nth byte from the radio"},
    {"--double-to-host", &LineFaults::DoubleToHost, "send the Nth byte from the radio twice"},
    {"--drop-to-radio", &LineFaults::DropToRadio, "lose the Nth byte from the host"},
    {"--garble-to-radio", &LineFaults::GarbleToRadio, "change the Nth byte from the host"},
    {"--double-to-radio", &LineFaults::DoubleToRadio, "take the Nth byte from the host twice"},
    {"--late-reply-at", &LineFaults::LateReplyAt, "the reply to the Nth command is late"},
    {"--late-reply-ms", &LineFaults::LateReplyMs, "... by so many milliseconds"},
    {"--no-prompt-at", &LineFaults::NoPromptAt, "the reply to the Nth command lacks its prompt"},
    {"--extra-bytes-at", &LineFaults::ExtraBytesAt,
     "the reply to the Nth command has bytes in front that do not belong there"},
    {"--double-reply-at", &LineFaults::DoubleReplyAt, "the reply to the Nth command comes twice"},
    {"--hang-up-at-byte-to-host", &LineFaults::HangUpAtByteToHost,
     "hang up behind the Nth byte from the radio"},
    {"--hang-up-at-byte-to-radio", &LineFaults::HangUpAtByteToRadio,
     "hang up behind the Nth byte from the host"},
    {"--hang-up-at-command", &LineFaults::HangUpAtCommand, "hang up at the Nth command"},
    {"--hang-up-at-ms", &LineFaults::HangUpAtMs, "hang up so many milliseconds after the start"},
    {"--babble", &LineFaults::BabblePerSecond, "send N senseless bytes a second, of any value"},
    {"--babble-seed", &LineFaults::BabbleSeed, "seed of that babble"},
};

constexpr char garbling = 0x55;

}  // namespace

std::span<const FaultOption> FaultOptions() { return options; }

std::string FaultPlayer::ToHost(char byte) {
  ++toHost;
  return Damaged(byte, toHost, faults.DropToHost, faults.GarbleToHost, faults.DoubleToHost);
}

std::string FaultPlayer::ToRadio(char byte) {
  ++toRadio;
  return Damaged(byte, toRadio, faults.DropToRadio, faults.GarbleToRadio, faults.DoubleToRadio);
}

std::string FaultPlayer::Damaged(char byte, std::int64_t number, std::int64_t dropped,
                                 std::int64_t garbled, std::int64_t doubled) {
  if (number == dropped) return "";
  if (number == garbled) return std::string(1, static_cast<char>(byte ^ garbling));
  return std::string(number == doubled ? 2 : 1, byte);
}

bool FaultPlayer::IsMuted(std::int64_t command) const {
  return faults.SilentFrom > 0 && command >= faults.SilentFrom &&
         (faults.SilentUntil == 0 || command <= faults.SilentUntil);
}

void FaultPlayer::Change(Reply& reply) {
  if (reply.ToEmptyLine) return;
  if (reply.Command == faults.LateReplyAt) {
    reply.Start += std::chrono::milliseconds(faults.LateReplyMs);
  }
  if (reply.Command == faults.NoPromptAt) reply.Prompt.clear();
  if (reply.Command == faults.ExtraBytesAt) {
    reply.Text.insert(reply.Text.starts_with("\r\n") ? 2 : 0, faults.ExtraBytes);
  }
  if (reply.Command == faults.DoubleReplyAt) reply.Text += reply.Prompt + reply.Text;
}

bool FaultPlayer::HangUpReached() const {
  return (faults.HangUpAtByteToHost > 0 && toHost >= faults.HangUpAtByteToHost) ||
         (faults.HangUpAtByteToRadio > 0 && toRadio >= faults.HangUpAtByteToRadio);
}

std::optional<Time> FaultPlayer::HangUpTime() const {
  if (faults.HangUpAtMs == 0) return std::nullopt;
  return std::chrono::milliseconds(faults.HangUpAtMs);
}

std::optional<Time> FaultPlayer::NextBabble() const {
  if (faults.BabblePerSecond <= 0) return std::nullopt;
  return lastBabble + Time(1'000'000 / faults.BabblePerSecond);
}

char FaultPlayer::TakeBabble() {
  if (!seeded) random.seed(static_cast<unsigned>(faults.BabbleSeed));
  seeded = true;
  lastBabble = NextBabble().value_or(lastBabble);
  return static_cast<char>(random() % 256);
}

}  // namespace quillmark::sim
