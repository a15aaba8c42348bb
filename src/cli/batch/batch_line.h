#pragma once

#include <array>
#include <string>
#include <vector>

namespace quillmark {

// What the report has of one radio. Texts are UTF-8; no value of a setting is among them.
struct BatchLine {
  std::string Time{};  // "2026-11-23T18:40:02Z"
  std::string Port{};
  std::string Serial{};
  std::string Unit{};
  std::string Firmware{};
  std::string Result{};
  std::string Refused{};  // the settings that the radio did not take: "PWR OWM"
  std::string Copy{};     // where is kept what the radio held before
};

// The results.
inline constexpr const char* ResultDone = "done";
inline constexpr const char* ResultIncomplete = "incomplete";
inline constexpr const char* ResultBadInput = "bad input";
inline constexpr const char* ResultDenied = "denied";
inline constexpr const char* ResultRefused = "refused";  // a setting, or some
inline constexpr const char* ResultFailed = "failed";    // nothing was overwritten

// A column of the report.
struct BatchColumn {
  const char* Name;
  std::string BatchLine::*Field;
};
inline constexpr std::array<BatchColumn, 8> BatchColumns{{
    {"time", &BatchLine::Time},
    {"port", &BatchLine::Port},
    {"serial", &BatchLine::Serial},
    {"unit", &BatchLine::Unit},
    {"firmware", &BatchLine::Firmware},
    {"result", &BatchLine::Result},
    {"refused", &BatchLine::Refused},
    {"copy", &BatchLine::Copy},
}};

// Its fields in the order of the columns, and the line of such fields; missing ones are empty.
std::vector<std::string> FieldsOf(const BatchLine& line);
BatchLine LineOf(const std::vector<std::string>& fields);
std::string JsonOf(const BatchLine& line);

}  // namespace quillmark
