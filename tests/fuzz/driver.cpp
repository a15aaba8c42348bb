// Feeds the targets inputs that are made from their seeds at random: for compilers without a
// fuzzer of their own, and as a short test. The same seed gives the same inputs.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace quillmark::fuzz {
namespace {

constexpr std::string_view pieces[] = {"\r\n>", "\r",    "\n",   "SETUP>", "LOADER>", "deco",
                                       "\x1b",  "=",     "[",    "\"",     "S9",      "FFFFFFFF",
                                       "PWR ",  "ERROR", ":",    "(",      " ",       "\0",
                                       "own",   "SKIP ", "ZONE", "#",      "-1",      "CLOSED"};

// Makes inputs by small changes to the seeds of a target.
class Mutator {
 public:
  explicit Mutator(unsigned seed) : random(seed) {}

  std::string Make(const Target& target) {
    std::string text(target.Seeds[Below(target.Seeds.size())]);
    for (std::size_t changes = 1 + Below(6); changes > 0; --changes) Change(text);
    return text;
  }

 private:
  std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random() % limit; }

  void Change(std::string& text) {
    const std::size_t at = Below(text.size() + 1);
    const std::size_t length = Below(std::min<std::size_t>(text.size() - at, 40) + 1);
    switch (Below(5)) {
      case 0:
        text.insert(at, 1, static_cast<char>(Below(256)));
        break;
      case 1:
        text.erase(at, length);
        break;
      case 2:
        text.insert(at, text.substr(Below(text.size()), length));
        break;
      case 3:
        text.insert(at, pieces[Below(std::size(pieces))]);
        break;
      default:
        if (at < text.size()) text[at] = static_cast<char>(text[at] ^ (1 << Below(8)));
    }
  }

  std::mt19937 random;
};

int Main(int argc, char** argv) {
  CLI::App app("The readers of foreign text against inputs made at random");
  std::vector<std::string> names;
  int inputs = 2000;
  unsigned seed = 1;
  app.add_option("target", names, "targets; all without a name");
  app.add_option("--inputs", inputs, "for each target")->capture_default_str();
  app.add_option("--seed", seed)->capture_default_str();
  CLI11_PARSE(app, argc, argv);
  for (const Target& target : Targets()) {
    if (!names.empty() && std::find(names.begin(), names.end(), target.Name) == names.end()) {
      continue;
    }
    Mutator mutator(seed);
    for (const std::string_view sound : target.Seeds) target.Feed(sound);
    for (int i = 0; i < inputs; ++i) target.Feed(mutator.Make(target));
    std::printf("%-14s %d inputs, nothing found\n", target.Name, inputs);
    std::fflush(stdout);
  }
  return 0;
}

}  // namespace
}  // namespace quillmark::fuzz

int main(int argc, char** argv) { return quillmark::fuzz::Main(argc, argv); }
