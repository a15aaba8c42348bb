#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark::sim {

// Firmware images for tests and measurements, as the simulated radio's loader takes them. Lines end
// in CR LF.

// One S-record of that type ('0' to '9'); `address` is written in `addressBytes` bytes.
std::string SRecord(char type, unsigned addressBytes, unsigned address, std::string_view data);

// A sound S28 file for this radio: header, data, end record. `version` has five characters. The
// file is `length` bytes long, an even number from 76 on.
std::string FirmwareImage(std::string_view version, std::size_t length);

}  // namespace quillmark::sim
