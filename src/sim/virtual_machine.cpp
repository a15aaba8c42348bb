#include "sim/virtual_machine.h"

#include <system_error>

namespace quillmark::sim {

namespace fs = std::filesystem;

ScratchFiles::ScratchFiles() {
  std::random_device random;
  do {
    root = fs::temp_directory_path() / ("quillmark-bench-" + std::to_string(random()));
  } while (!fs::create_directory(root));
  fs::create_directory(Shipped());
}

ScratchFiles::~ScratchFiles() {
  std::error_code ignored;
  fs::remove_all(root, ignored);
}

}  // namespace quillmark::sim
