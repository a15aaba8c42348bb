// How long all tests take as ./dev test runs them; beside it the test programs by themselves, one
// after the other, without a process for each test.

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "measurements.h"
#include "processor_time.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

namespace fs = std::filesystem;

constexpr int longestRun = 600'000;  // ms
constexpr const char* programs[] = {"quillmark_tests", "quillmark_e2e"};

// One run of a program.
struct Ran {
  double Time = 0;  // s
  std::string Printed;
};

// A failed test is no failure of the measurement.
Ran Run(const fs::path& program, const std::vector<std::string>& arguments) {
  const Moment begin = Now();
  Child child(program, arguments);
  Ran ran{.Printed = child.Rest(longestRun)};
  ran.Time = SecondsBetween(begin, Now());
  return ran;
}

// "100% tests passed, 0 tests failed out of 120"
std::string SummaryIn(const std::string& printed) {
  const std::size_t middle = printed.rfind(" tests passed, ");
  if (middle == std::string::npos) throw std::runtime_error("ctest printed no summary");
  const std::size_t begin = printed.rfind('\n', middle) + 1;
  return printed.substr(begin, printed.find('\n', middle) - begin);
}

}  // namespace

std::vector<Figure> MeasureTestSuite(Surroundings& surroundings) {
  const fs::path folder = surroundings.Tests.empty()
                              ? Surroundings::ThisProgram().parent_path().parent_path() / "dev"
                              : surroundings.Tests;
  for (const char* program : programs) {
    if (!fs::exists(folder / program)) {
      throw std::runtime_error(std::string(program) + " is not built; ./dev test builds it");
    }
  }
  const Ran whole = Run("ctest", {"--test-dir", folder, "-j8", "--no-tests=error"});
  double alone = 0;
  for (const char* program : programs) alone += Run(folder / program, {"--gtest_brief=1"}).Time;
  return {{.Name = "the whole test suite",
           .In = seconds,
           .Measured = whole.Time,
           .Floor = alone,
           .FloorName = "test programs by themselves",
           .Limit = 60,
           .Note = SummaryIn(whole.Printed)}};
}

}  // namespace quillmark::bench
