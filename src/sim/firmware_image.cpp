#include "sim/firmware_image.h"

#include <stdexcept>

namespace quillmark::sim {

namespace {

constexpr std::size_t longestData = 32;   // bytes in one record
constexpr std::size_t recordLength = 14;  // characters of an S2 record without its data

std::string Hex(unsigned value) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  return {digits[value / 16 % 16], digits[value % 16]};
}

// A record of `length` characters.
std::string DataRecord(unsigned address, std::size_t length) {
  std::string data;
  while (recordLength + 2 * data.size() < length) {
    data += static_cast<char>((address + data.size()) * 31 >> 2);
  }
  return SRecord('2', 3, address, data);
}

}  // namespace

std::string SRecord(char type, unsigned addressBytes, unsigned address, std::string_view data) {
  const unsigned count = addressBytes + static_cast<unsigned>(data.size()) + 1;
  std::string text = std::string("S") + type;
  unsigned sum = 0;
  const auto add = [&](unsigned byte) {
    text += Hex(byte);
    sum += byte % 256;
  };
  add(count);
  for (unsigned i = addressBytes; i-- > 0;) add(address >> (8 * i));
  for (const char c : data) add(static_cast<unsigned char>(c));
  return text + Hex(255 - sum % 256) + "\r\n";
}

std::string FirmwareImage(std::string_view version, std::size_t length) {
  constexpr std::size_t longest = recordLength + 2 * longestData;
  constexpr std::size_t shortest = recordLength + 2;
  std::string image = SRecord('0', 2, 0, "77-1234A01 " + std::string(version));
  const std::string end = SRecord('8', 3, 0, "");
  if (length % 2 != 0 || length < image.size() + shortest + end.size()) {
    throw std::invalid_argument("no image of that length");
  }
  image.reserve(length);
  unsigned address = 0;
  for (std::size_t left = length - end.size() - image.size(); left > 0;) {
    // What is left over must make a record of its own.
    const std::size_t next = left <= longest             ? left
                             : left < longest + shortest ? left - shortest
                                                         : longest;
    image += DataRecord(address, next);
    address += static_cast<unsigned>((next - recordLength) / 2);
    left -= next;
  }
  return image + end;
}

}  // namespace quillmark::sim
