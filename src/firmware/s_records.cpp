#include "firmware/s_records.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/hex.h"

namespace quillmark {

namespace {

// What a type of record is for.
enum class Role { Header, Data, Count, End };

// A type of record: the digit behind its "S", and how long its address is.
struct RecordType {
  char Digit;
  std::size_t AddressBytes;
  Role Is;
};

constexpr std::array types{
    RecordType{'0', 2, Role::Header}, RecordType{'1', 2, Role::Data},
    RecordType{'2', 3, Role::Data},   RecordType{'3', 4, Role::Data},
    RecordType{'5', 2, Role::Count},  RecordType{'6', 3, Role::Count},
    RecordType{'7', 4, Role::End},    RecordType{'8', 3, Role::End},
    RecordType{'9', 2, Role::End},
};

constexpr std::size_t headLength = 4;  // the "S", the type and the count
// The count covers 255 bytes at most.
constexpr std::size_t longestLine = headLength + 2 * 255;
constexpr std::string_view lineEnds = "\r\n";

const RecordType* TypeOf(std::string_view line) {
  if (line.size() < 2 || (line[0] != 'S' && line[0] != 's')) return nullptr;
  const auto found = std::find_if(types.begin(), types.end(),
                                  [&](const RecordType& type) { return type.Digit == line[1]; });
  return found == types.end() ? nullptr : &*found;
}

// What is wrong with the length of a record that says it is so long; "" when nothing is.
std::string LengthFault(std::string_view line, const RecordType& type, std::size_t count) {
  const std::size_t length = headLength + 2 * count;
  if (line.size() < length) return "it is shorter than its length says";
  if (line.size() > length) return "it is longer than its length says";
  const bool bare = type.Is == Role::Count || type.Is == Role::End;
  const std::size_t least = type.AddressBytes + 1;
  const bool fits = bare ? count == least : count >= least;
  return fits ? "" : "its length does not fit its type";
}

std::string HexText(unsigned value) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  return {digits[value / 16 % 16], digits[value % 16]};
}

}  // namespace

// A sound record.
struct SRecordCheck::Record {
  RecordType Type;
  std::uint64_t Address = 0;
  std::size_t DataLength = 0;  // bytes
};

void SRecordCheck::Take(std::string_view piece) {
  while (!piece.empty() && !fault) {
    const std::size_t end = std::min(piece.find_first_of(lineEnds), piece.size());
    if (end > 0) {
      behindCarriageReturn = false;
      Append(piece.substr(0, end));
    }
    if (end == piece.size()) return;
    const bool sameLineEnd = piece[end] == '\n' && behindCarriageReturn;
    behindCarriageReturn = piece[end] == '\r';
    if (!sameLineEnd) EndLine();
    piece.remove_prefix(end + 1);
  }
}

std::optional<SRecordFault> SRecordCheck::Finish() {
  if (!fault && !line.empty()) Judge();
  if (!fault && !ended) {
    lineNumber = lastRecordLine;
    Fail("it is the last one and no end record");
  }
  return fault;
}

void SRecordCheck::Append(std::string_view text) {
  line.append(text.substr(0, longestLine + 1 - line.size()));
  // Not kept until it ends: it may never end.
  if (line.size() > longestLine) Judge();
}

void SRecordCheck::EndLine() {
  if (!line.empty()) Judge();
  line.clear();
  ++lineNumber;
}

void SRecordCheck::Judge() {
  lastRecordLine = lineNumber;
  const auto record = ReadRecord();
  if (!record) return;
  const bool first = ++records == 1;
  if (ended) return Fail("it stands behind the end record");
  switch (record->Type.Is) {
    case Role::Header:
      if (!first) Fail("it is a second header record");
      break;
    case Role::Data:
      JudgeData(*record);
      break;
    case Role::Count:
      if (record->Address == dataRecords) break;
      Fail("it counts " + std::to_string(record->Address) + " data records where there are " +
           std::to_string(dataRecords));
      break;
    case Role::End:
      JudgeEnd();
      break;
  }
}

std::optional<SRecordCheck::Record> SRecordCheck::ReadRecord() {
  const auto failed = [this](std::string what) {
    Fail(std::move(what));
    return std::nullopt;
  };
  const RecordType* type = TypeOf(line);
  if (type == nullptr) return failed("it does not begin with a type of record");
  const auto count = HexPair(line, 2);
  if (!count) return failed("it has no length");
  std::string lengthFault = LengthFault(line, *type, *count);
  if (!lengthFault.empty()) return failed(std::move(lengthFault));
  Record record{.Type = *type, .DataLength = *count - type->AddressBytes - 1};
  unsigned sum = *count;
  for (std::size_t i = 0; i + 1 < *count; ++i) {
    const auto value = HexPair(line, headLength + 2 * i);
    if (!value) return failed("it holds a character that is no hexadecimal digit");
    sum += *value;
    if (i < type->AddressBytes) record.Address = record.Address * 256 + *value;
  }
  const auto checksum = HexPair(line, line.size() - 2);
  if (!checksum) return failed("it holds a character that is no hexadecimal digit");
  const unsigned right = 255 - sum % 256;
  if (*checksum == right) return record;
  return failed("its checksum is " + HexText(*checksum) + " and should be " + HexText(right));
}

void SRecordCheck::JudgeData(const Record& record) {
  if (dataRecords > 0 && record.Address < nextAddress && outOfOrder == 0) outOfOrder = lineNumber;
  ++dataRecords;
  nextAddress = record.Address + record.DataLength;
}

void SRecordCheck::JudgeEnd() {
  ended = true;
  if (dataRecords == 0) Fail("it ends the file before any data");
}

void SRecordCheck::Fail(std::string what) {
  if (!fault) fault = {lineNumber, std::move(what)};
}

}  // namespace quillmark
