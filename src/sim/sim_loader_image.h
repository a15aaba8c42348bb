#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark::sim {

// Checks a firmware image in Motorola S-record form while it comes in, byte by byte, and keeps
// nothing of it but counts, so that memory stays small however long the image. The loader feeds it;
// one object checks one image. The first fault found stands; the rest is read over up to the
// terminating record.
class SimLoaderImage {
 public:
  void Take(char byte);

  // The terminating record has come, good or bad.
  bool Finished() const { return finished; }
  // What is wrong, such as "CHECKSUM IN RECORD 12" (records count from 1); "" while all is well.
  const std::string& Fault() const { return fault; }

  int Records() const { return records; }
  std::int64_t DataBytes() const { return dataBytes; }
  // Of the header record: 5 characters such as 3.2.0.
  const std::string& Version() const { return version; }

 private:
  struct Record;

  void EndLine();
  void Judge();
  // Nothing when the line is no sound record, which has been noted then.
  std::optional<Record> ReadRecord();
  void JudgeHeader(const Record& record);
  void JudgeData(const Record& record);
  void Fail(std::string_view what);

  std::string line;
  bool judged = false;  // the line so far is a whole record that has been looked at
  bool finished = false;
  std::string fault;
  int records = 0;
  int dataRecords = 0;
  std::int64_t dataBytes = 0;
  std::uint64_t nextAddress = 0;
  std::string version;
};

}  // namespace quillmark::sim
