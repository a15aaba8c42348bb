#include "sim/bench/virtual_machine.h"

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

}  // namespace quillmark::sim
