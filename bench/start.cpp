// From the start of the console's process to its main window, and the memory that it holds then;
// beside it the same of a bare window. The splash window is painted, then closed as by a key.

#include <algorithm>
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

constexpr std::size_t starts = 5;
constexpr int longestEnd = 10'000;  // ms

// One start of a program.
struct Start {
  double Time = 0;    // ms
  double Memory = 0;  // MB
};

double ValueIn(const std::string& line, const std::string& name) {
  if (!line.starts_with(name + " ")) throw std::runtime_error("the start report has no " + name);
  return std::stod(line.substr(name.size() + 1));
}

Start StartOnce(const std::filesystem::path& program, const std::vector<std::string>& options) {
  const auto begin = static_cast<double>(Now().Wall.count());
  Child child(program, options);
  Start start;
  start.Time = (ValueIn(child.Line(), "window-painted-us") - begin) / 1000;
  start.Memory = ValueIn(child.Line(), "resident-bytes") / 1e6;
  child.Rest(longestEnd);
  return start;
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

// The first start is only to warm up the system's caches.
Start MedianStart(const std::filesystem::path& program, const std::vector<std::string>& options) {
  StartOnce(program, options);
  std::vector<double> times, memories;
  for (std::size_t i = 0; i < starts; ++i) {
    const Start start = StartOnce(program, options);
    times.push_back(start.Time);
    memories.push_back(start.Memory);
  }
  return {Median(times), Median(memories)};
}

}  // namespace

std::vector<Figure> MeasureStart(Surroundings& surroundings) {
  const std::filesystem::path program = surroundings.Program("quillmark_bench_start");
  const Start bare = MedianStart(program, {"--bare-window"});
  const Start console = MedianStart(program, {});
  const std::string note = "the median of " + std::to_string(starts) + " after one more";
  return {{.Name = "start to the first window",
           .In = milliseconds,
           .Measured = console.Time,
           .Floor = bare.Time,
           .FloorName = "bare Qt window",
           .Limit = 300,
           .Note = note},
          {.Name = "memory at the first window",
           .In = megabytes,
           .Measured = console.Memory,
           .Floor = bare.Memory,
           .FloorName = "bare Qt window",
           .Limit = 90}};
}

}  // namespace quillmark::bench
