#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "firmware/s_records.h"
#include "platform/event_loop.h"

namespace quillmark {

// A firmware file that is read from its start, a block at a time. It may change, shrink or vanish
// meanwhile: reads then give what there is.
class FirmwareFile {
 public:
  // Nothing when it is open; else the system's text for what is in the way. Only plain files are
  // opened: a pipe would hold the program until something is written into it.
  std::optional<std::string> Open(const std::filesystem::path& path);
  // The next bytes; fewer where the file ends or cannot be read. "" while it is not open.
  std::string Read(std::size_t bytes);
  // The last read was cut short by a failure, not by the end of the file.
  bool Failed() const { return file && std::ferror(file.get()) != 0; }
  void Rewind();
  // In bytes, as it is now. Rewinds the file.
  std::int64_t Length();
  void Close() { file.reset(); }

 private:
  // Closes the file with the object.
  struct Closer {
    void operator()(std::FILE* open) const { std::fclose(open); }
  };
  std::unique_ptr<std::FILE, Closer> file;
};

// What is wrong with a file, if anything is.
struct FirmwareFindings {
  std::optional<SRecordFault> Fault{};
  std::int64_t OutOfOrderLine = 0;  // the first data record out of address order; 0: none
};

// Reads an open file from its start to its end, or to its first fault. Delivers events meanwhile.
FirmwareFindings LookThrough(FirmwareFile& file, EventLoop& events);

}  // namespace quillmark
