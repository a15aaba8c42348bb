#pragma once

#include <string>
#include <vector>

namespace quillmark::bench {

// What a measurement gives and how it is printed. Every figure stands beside another one of the
// same run: the least that the work can take, or what something comparable takes. Only limits are
// constants.

// The unit of a figure, and how many decimals are printed.
struct Unit {
  const char* Name;
  int Decimals;
};
constexpr Unit seconds{"s", 3};
constexpr Unit milliseconds{"ms", 0};
constexpr Unit processorShare{"% of a core", 2};
constexpr Unit processorRate{"ms/s", 2};  // processor time in ms for each second that passes
constexpr Unit megabytes{"MB", 1};        // of 1,000,000 bytes
constexpr Unit bytes{"bytes", 0};

// What the limit of a figure holds for: the value, or its ratio to the floor.
enum class Judged { Value, Ratio };

// One row of the printed table.
struct Figure {
  std::string Name;
  Unit In;
  double Measured = 0;
  double Floor = 0;
  std::string FloorName{};  // what the floor is
  Judged By = Judged::Value;
  double Limit = 0;    // the highest that is still good
  std::string Note{};  // what was counted; printed under the table
};

// A measurement that could not be made.
struct Failure {
  std::string Measurement;
  std::string Reason;
};

// The figures as an aligned table, with their notes, and below it what could not be measured.
std::string Table(const std::vector<Figure>& figures, const std::vector<Failure>& failures);

}  // namespace quillmark::bench
