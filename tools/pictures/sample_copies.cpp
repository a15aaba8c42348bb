#include "pictures/sample_copies.h"

#include <cstdint>
#include <string>

#include "history/copy_store.h"

namespace quillmark {

void KeepSampleCopies(const ProgramFiles& files) {
  constexpr std::int64_t firstTime = 1'795'000'000;  // 2026-11-18
  constexpr std::int64_t day = 86'400;
  const char* const reasons[] = {"read", "before a preset", "read", "before programming a file"};
  CopyStore store(files);
  std::int64_t time = firstTime;
  int power = 30;
  for (const char* reason : reasons) {
    RadioCopy copy{.Serial = "SN 00987654",
                   .Firmware = "77-1234A01 3.2.0  01Jan2009",
                   .Reason = reason,
                   .Name = "",
                   .Lines = {"UNIT 20117", "OWN North ridge, behind the water tower", "MODE R",
                             "PWR " + std::to_string(power) + " dBm", "BAUD 9600 8N1"}};
    if (power < 28) copy.Lines.back() = "BAUD 4800 8N1";
    const auto file = store.Add("00987654", CopyText(copy, "11/18/2026", time), time);
    if (power == 27) store.Note(file, "Before the storm", true);
    power -= 3;
    time += day;
  }
}

std::vector<ComparedValue> SampleComparison() {
  const std::vector<std::string> before{"OWN Hill top", "MODE M",   "PWR 30 dBm", "BAUD 4800 8N1",
                                        "DLINK 19200",  "DLINK ON", "XRSSI -120"};
  const std::vector<std::string> after{"OWN North ridge, the mast behind the water tower",
                                       "MODE M",
                                       "PWR 27",
                                       "BAUD 4800 8N1",
                                       "DLINK 19200",
                                       "DLINK OFF"};
  return CompareValues(ValuesOf(before), ValuesOf(after));
}

}  // namespace quillmark
