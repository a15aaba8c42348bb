// What a coverage-guided fuzzer calls. QUILLMARK_FUZZ_TARGET names the target; its seeds go into
// the folder QUILLMARK_FUZZ_CORPUS first.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "fuzz/fuzz_target.h"

namespace {

const quillmark::fuzz::Target& Chosen() {
  static const quillmark::fuzz::Target& chosen = [&]() -> const quillmark::fuzz::Target& {
    const char* name = std::getenv("QUILLMARK_FUZZ_TARGET");
    for (const auto& target : quillmark::fuzz::Targets()) {
      if (name != nullptr && std::string_view(name) == target.Name) return target;
    }
    quillmark::fuzz::Check(false, "QUILLMARK_FUZZ_TARGET names a target");
    std::abort();
  }();
  return chosen;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const char* folder = std::getenv("QUILLMARK_FUZZ_CORPUS");
  if (folder == nullptr) return 0;
  int number = 0;
  for (const std::string_view seed : Chosen().Seeds) {
    std::ofstream(std::string(folder) + "/seed" + std::to_string(number++), std::ios::binary)
        << seed;
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Chosen().Feed({reinterpret_cast<const char*>(data), size});
  return 0;
}
