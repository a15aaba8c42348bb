#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sim/sim_answer.h"
#include "sim/sim_loader_image.h"
#include "sim/sim_time.h"

namespace quillmark::sim {

// How long the loader takes for its work. During Enter, Erase, Verify and Start it hears nothing.
struct SimLoaderOptions {
  std::optional<Time> ThinkTime{};                     // for each line; nothing: as the radio
  Time EnterTime = std::chrono::milliseconds(3000);    // erases the running firmware, comes up
  Time EraseTime = std::chrono::milliseconds(1500);    // the word ERASE
  Time VerifyTime = std::chrono::milliseconds(200);    // from the last record to the verdict
  Time StartTime = std::chrono::milliseconds(1000);    // from EXIT to the new firmware's prompt
  Time SilenceTime = std::chrono::milliseconds(2000);  // a transfer that pauses so long has failed
  std::int64_t StallAtByte = 0;  // hears nothing from this transfer byte on (from 1); 0: never
  Time StallTime = std::chrono::seconds(60);
  std::int64_t ResetAtByte = 0;  // starts anew at this transfer byte, without firmware; 0: never
};

// One transfer of an image: for tests of what came and for measurements.
struct SimTransfer {
  Time First{0};  // when its first and its last byte had wholly arrived
  Time Last{0};
  std::int64_t Bytes = 0;
  int Records = 0;
  std::int64_t DataBytes = 0;
  bool Ended = false;  // the verdict is out
  bool Sound = false;
};

// The radio's firmware loader: its words and the check of the image that it is sent. A state
// machine that SimRadio owns and feeds while the radio is in its loader; lines, echo, baud rates
// and pacing are SimRadio's.
class SimLoader {
 public:
  explicit SimLoader(SimLoaderOptions loaderOptions = {}) : options(loaderOptions) {}

  const SimLoaderOptions& Options() const { return options; }
  void SetFaults(std::int64_t stallAtByte, std::int64_t resetAtByte);
  void Enter();  // the old firmware is gone

  // ERASE, PROGRAM and EXIT; anything else is an invalid command.
  RadioAnswer Execute(std::string_view line);

  // True from PROGRAM to the verdict: bytes are image data, not typed lines.
  bool Receiving() const { return receiving; }
  // Takes one byte of the image. A text is the verdict, and the transfer is over.
  std::optional<std::string> Take(Time at, char byte);
  // Ends the transfer for a reason outside the image; gives the verdict.
  std::string Abort(std::string_view reason);
  // When a transfer that goes silent ends; nothing while none runs or before its first byte.
  std::optional<Time> Deadline() const;
  // True at the transfer byte at which the loader is to stall.
  bool StallsNow() const { return receiving && transfer.Bytes == options.StallAtByte; }
  // True at the transfer byte at which the radio is to start anew.
  bool ResetsNow() const { return receiving && transfer.Bytes == options.ResetAtByte; }

  // The last transfer, or the one that runs.
  const SimTransfer& Transfer() const { return transfer; }
  // The version of the image in the radio; "" when it holds no sound one.
  const std::string& Version() const { return version; }

 private:
  std::string Verdict(std::string_view fault);

  SimLoaderOptions options;
  SimLoaderImage image;
  SimTransfer transfer;
  std::string version;
  bool erased = false;
  bool receiving = false;
};

}  // namespace quillmark::sim
