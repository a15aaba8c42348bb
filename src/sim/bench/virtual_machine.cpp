#include "sim/bench/virtual_machine.h"

#include <ctime>
#include <fstream>
#include <iterator>
#include <system_error>

namespace quillmark::sim {

namespace fs = std::filesystem;

ScratchFiles::ScratchFiles() {
  std::random_device random;
  do {
    root = fs::temp_directory_path() / ("quillmark-bench-" + std::to_string(random()));
  } while (!fs::create_directory(root));
  fs::copy(QUILLMARK_SHARE, Shipped(), fs::copy_options::recursive);
}

ScratchFiles::~ScratchFiles() {
  std::error_code ignored;
  fs::remove_all(root, ignored);
}

void RecordingDesktop::Print(const PrintTarget& target, const fs::path& file,
                             const std::string& title) {
  std::ifstream in(file, std::ios::binary);
  Prints.push_back({target, file, title, {std::istreambuf_iterator<char>(in), {}}});
}

// An hour ahead of coordinated universal time, as the virtual loop is.
std::string RecordingDesktop::DateAndTime(std::int64_t utcSeconds) const {
  const std::time_t local = utcSeconds + 3600;
  std::tm parts{};
  char text[40];
  const bool fits = gmtime_r(&local, &parts) != nullptr &&
                    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts) > 0;
  return fits ? text : "";
}

}  // namespace quillmark::sim
