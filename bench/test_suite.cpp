// How long all tests take as ./dev test runs them; beside it the test programs by themselves, one
// after the other, without a process for each test.

#include <algorithm>
#include <stdexcept>

#include "child.h"
#include "measurements.h"
#include "processor_time.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

namespace fs = std::filesystem;

constexpr int longestRun = 600'000;  // ms
constexpr const char* programs[] = {"quillmark_tests", "quillmark_e2e"};

// Gives what the program printed; a failed test is no failure of the measurement.
std::string Run(const fs::path& program, const std::vector<std::string>& arguments,
                double& duration) {
  const Moment begin = Now();
  Child child(program, arguments);
  std::string printed = child.Rest(longestRun);
  duration += SecondsBetween(begin, Now());
  return printed;
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
  double whole = 0, alone = 0;
  const std::string printed =
      Run("ctest", {"--test-dir", folder, "-j2", "--no-tests=error"}, whole);
  for (const char* program : programs) Run(folder / program, {"--gtest_brief=1"}, alone);
  return {{"the whole test suite", seconds, whole, alone, "test programs by themselves",
           Judged::Value, 60, SummaryIn(printed)}};
}

}  // namespace quillmark::bench
