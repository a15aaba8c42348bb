#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// The first thing wrong with a file of S-records.
struct SRecordFault {
  std::int64_t Line = 1;  // from 1
  std::string What;       // of that line: "its checksum is 3C and should be 3B"
};

// Checks a whole file of Motorola S-records while it is read, piece by piece: types, lengths,
// digits, checksums, counts, the end record. Keeps one line at most, so that
// memory stays small however long the file or a line of it is. The firmware upgrade makes one for
// each file.
class SRecordCheck {
 public:
  void Take(std::string_view piece);
  // At the end of the file. Nothing when all is well.
  std::optional<SRecordFault> Finish();

  // The first line whose data stand out of address order; 0 while they all rise. No fault: the
  // addresses tell where the data belong.
  std::int64_t OutOfOrderLine() const { return outOfOrder; }

  // There is no need to read on: the fault has been found.
  bool Failed() const { return fault.has_value(); }
  // The line that is being read, from 1.
  std::int64_t LineNumber() const { return lineNumber; }

 private:
  struct Record;

  void Append(std::string_view text);
  void EndLine();
  void Judge();
  std::optional<Record> ReadRecord();
  void JudgeData(const Record& record);
  void JudgeEnd();
  void Fail(std::string what);

  std::string line;
  std::int64_t lineNumber = 1;
  std::int64_t lastRecordLine = 1;
  bool behindCarriageReturn = false;  // a line feed now ends no further line
  bool ended = false;                 // the end record has come
  std::int64_t records = 0;
  std::uint64_t dataRecords = 0;
  std::uint64_t nextAddress = 0;
  std::int64_t outOfOrder = 0;
  std::optional<SRecordFault> fault;
};

}  // namespace quillmark
