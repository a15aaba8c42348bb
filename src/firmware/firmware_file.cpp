#include "firmware/firmware_file.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "text/path_text.h"

namespace quillmark {

namespace fs = std::filesystem;

namespace {

// Between two looks at the event loop; a millisecond's work.
constexpr std::size_t checkedAtOnce = 64 * 1024;  // bytes

}  // namespace

std::optional<std::string> FirmwareFile::Open(const fs::path& path) {
  Close();
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    return PathText(path) + " is not a plain file.";
  }
  errno = 0;
  file.reset(std::fopen(path.c_str(), "rb"));
  if (file) return std::nullopt;
  return ErrorText({errno, std::generic_category()});
}

std::string FirmwareFile::Read(std::size_t bytes) {
  std::string block;
  if (!file) return block;
  block.resize(bytes);
  block.resize(std::fread(block.data(), 1, bytes, file.get()));
  return block;
}

void FirmwareFile::Rewind() {
  if (file) std::rewind(file.get());
}

std::int64_t FirmwareFile::Length() {
  if (!file) return 0;
  const bool atEnd = std::fseek(file.get(), 0, SEEK_END) == 0;
  const long length = atEnd ? std::ftell(file.get()) : 0;
  Rewind();
  return std::max(length, 0L);
}

FirmwareFindings LookThrough(FirmwareFile& file, EventLoop& events) {
  SRecordCheck check;
  file.Rewind();
  for (;;) {
    const std::string piece = file.Read(checkedAtOnce);
    check.Take(piece);
    if (file.Failed()) return {SRecordFault{check.LineNumber(), "the disk can't read it"}};
    if (piece.size() < checkedAtOnce || check.Failed()) {
      return {check.Finish(), check.OutOfOrderLine()};
    }
    events.Pump();
  }
}

}  // namespace quillmark
