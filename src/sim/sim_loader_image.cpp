#include "sim/sim_loader_image.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace quillmark::sim {

namespace {

// What a type of record is for.
enum class Role { Header, Data, Count, End };

// A type of record: the digit behind its "S", and how long its address is.
struct RecordType {
  char Digit;
  std::size_t AddressBytes;
  Role Is;
};

constexpr RecordType types[] = {
    {'0', 2, Role::Header}, {'1', 2, Role::Data},  {'2', 3, Role::Data},
    {'3', 4, Role::Data},   {'5', 2, Role::Count}, {'6', 3, Role::Count},
    {'7', 4, Role::End},    {'8', 3, Role::End},   {'9', 2, Role::End}};

// "S", type and count, then 255 bytes in hex at most.
constexpr std::size_t longestRecord = 4 + 2 * 255;

constexpr std::string_view ownPartNumber = "77-1234";
constexpr std::size_t versionAt = 11;  // behind the part number and its 4 letters of variant
constexpr std::size_t versionLength = 5;

const RecordType* TypeOf(std::string_view line) {
  if (line.size() < 2 || (line[0] != 'S' && line[0] != 's')) return nullptr;
  const auto found = std::find_if(std::begin(types), std::end(types),
                                  [&](const RecordType& type) { return type.Digit == line[1]; });
  return found == std::end(types) ? nullptr : found;
}

std::optional<unsigned> HexPair(std::string_view text, std::size_t at) {
  if (at + 2 > text.size()) return std::nullopt;
  unsigned value = 0;
  for (const char c : text.substr(at, 2)) {
    value *= 16;
    if (c >= '0' && c <= '9') {
      value += static_cast<unsigned>(c - '0');
    } else if (c >= 'A' && c <= 'F') {
      value += static_cast<unsigned>(c - 'A') + 10;
    } else if (c >= 'a' && c <= 'f') {
      value += static_cast<unsigned>(c - 'a') + 10;
    } else {
      return std::nullopt;
    }
  }
  return value;
}

bool EndsAnImage(std::string_view line) {
  const RecordType* type = TypeOf(line);
  return type != nullptr && type->Is == Role::End;
}

}  // namespace

// A record whose length, digits and checksum are right.
struct SimLoaderImage::Record {
  RecordType Type;
  std::uint64_t Address = 0;
  std::string Data{};
  unsigned Sum = 0;  // of everything behind the type, checksum included
};

void SimLoaderImage::Take(char byte) {
  if (finished) return;
  if (byte == '\r' || byte == '\n') {
    EndLine();
    return;
  }
  if (judged) return Fail("LENGTH");
  if (line.size() == longestRecord) return;  // EndLine calls it what it is
  line += byte;
  const auto count = HexPair(line, 2);
  if (count && line.size() == 4 + 2 * std::size_t{*count}) Judge();
}

void SimLoaderImage::EndLine() {
  if (!line.empty() && !judged) {
    ++records;
    Fail(TypeOf(line) == nullptr ? "TYPE" : "LENGTH");
    finished = EndsAnImage(line);
  }
  line.clear();
  judged = false;
}

void SimLoaderImage::Judge() {
  judged = true;
  ++records;
  const auto record = ReadRecord();
  if (!record) return;
  const Role role = record->Type.Is;
  if ((role == Role::Header) != (records == 1)) return Fail("HEADER");
  switch (role) {
    case Role::Header:
      return JudgeHeader(*record);
    case Role::Data:
      return JudgeData(*record);
    case Role::Count:
      if (record->Address != static_cast<std::uint64_t>(dataRecords)) Fail("COUNT");
      break;
    case Role::End:
      if (dataRecords == 0) Fail("NO DATA");
      break;
  }
}

std::optional<SimLoaderImage::Record> SimLoaderImage::ReadRecord() {
  const auto failed = [this](std::string_view what) {
    Fail(what);
    return std::nullopt;
  };
  const RecordType* type = TypeOf(line);
  if (type == nullptr) return failed("TYPE");
  finished = type->Is == Role::End;
  Record record{.Type = *type};
  const std::size_t count = line.size() / 2 - 2;
  if (count < type->AddressBytes + 1) return failed("LENGTH");
  for (std::size_t i = 0; i <= count; ++i) {
    const auto value = HexPair(line, 2 + 2 * i);
    if (!value) return failed("DIGIT");
    record.Sum += *value;
    if (i >= 1 && i <= type->AddressBytes) record.Address = record.Address * 256 + *value;
    if (i > type->AddressBytes && i < count) record.Data += static_cast<char>(*value);
  }
  if (record.Sum % 256 != 255) return failed("CHECKSUM");
  return record;
}

void SimLoaderImage::JudgeHeader(const Record& record) {
  if (record.Data.size() < versionAt + versionLength) return Fail("HEADER");
  version = record.Data.substr(versionAt, versionLength);
  const bool printable =
      std::all_of(version.begin(), version.end(), [](char c) { return c > ' ' && c < 127; });
  if (!printable) return Fail("HEADER");
  if (!record.Data.starts_with(ownPartNumber)) Fail("OTHER RADIO");
}

void SimLoaderImage::JudgeData(const Record& record) {
  if (dataRecords > 0 && record.Address < nextAddress) return Fail("ADDRESS");
  ++dataRecords;
  dataBytes += static_cast<std::int64_t>(record.Data.size());
  nextAddress = record.Address + record.Data.size();
}

void SimLoaderImage::Fail(std::string_view what) {
  if (fault.empty()) fault = std::string(what) + " IN RECORD " + std::to_string(records);
}

}  // namespace quillmark::sim
