#include "fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>

namespace quillmark::fuzz {

void Check(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", promise);
  std::abort();
}

std::span<const Target> Targets() {
  using namespace std::string_view_literals;
  static const Target targets[] = {
      {.Name = "reply",
       .Feed = FeedReply,
       .Seeds = {"\0pwr\r\nPWR 21 dBm\r\n>"sv, "\1own\r\nHill > north\r\nSETUP>"sv,
                 "\x08\r\n>pwr\r\n>PWR 21 dBm\r\n>"sv}},
      {.Name = "saved-setting",
       .Feed = FeedSavedSetting,
       .Seeds = {"\r\nDLINK 9600 (OFF)\r\n>"sv, "\r\nMASK: 0000 00FF\r\n>"sv,
                 "own\r\nHill\r\n>"sv}},
      {.Name = "zones",
       .Feed = FeedZones,
       .Seeds = {"skip\r\nSKIP 1,3\r\n>"sv,
                 "zone data\r\nZONE 1\r\nTX 12 RX 30 ERR 1\r\nZONE 2\r\nTX 0 RX 0 ERR 0\r\n>"sv}},
      {.Name = "received",
       .Feed = FeedReceived,
       .Seeds = {"\r\n>"sv, "\r\nPASSWORD OK\r\nSETUP>\b\b\x1b"sv, "\r\nCLOSED\r\n>"sv}},
      {.Name = "configuration",
       .Feed = FeedConfigFile,
       .Seeds = {"\xEF\xBB\xBF#With Firmware Version: 1\r\nOWN UNIT 5\rPWR 21 dBm\nDLINK ON\r\n"sv,
                 "ALARM ACTIVE: LO\r\nMASK: 0000 00FF\r\n"sv}},
      {.Name = "copy",
       .Feed = FeedCopy,
       .Seeds =
           {"#From Radio, serial number: SN 1\r\n#Kept: read\r\n#Name: T^O^P\r\n#Pinned\r\n\r\n"
            "MODE M\r\n#End of copy: 1 lines, 3b6b8c7e\r\n"sv}},
      {.Name = "preset",
       .Feed = FeedPresetFile,
       .Seeds = {"#PresetFile3\r\n#Name:On the hill\r\n#PresetCaption:Hill\r\nPWR 21\r\n"sv}},
      {.Name = "firmware",
       .Feed = FeedFirmware,
       .Seeds = {"S00600004844521B\r\nS214000000285F245F2212226A000424290008237C2A\r\n"
                 "S5030001FB\r\nS804000000FB\r\n"sv,
                 "S0220000312D3233343541303620332E322E310030314A616E3230303900000000000011\r\n"sv}},
      {.Name = "ini",
       .Feed = FeedIniFile,
       .Seeds = {"; mine\r\n[Preferences]\r\nCommPort=3\r\nName=\" a \\t\"\r\n\n[other]\nx=y"sv}},
  };
  return targets;
}

}  // namespace quillmark::fuzz
