#include "config/suggested_name.h"

#include <chrono>
#include <cstddef>

#include "text/text.h"

namespace quillmark {

namespace {

bool MayStand(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ' ' ||
         c == '-' || c == '_';
}

std::string TwoDigits(unsigned number) {
  return std::string(number < 10 ? "0" : "") + std::to_string(number);
}

// As 2026-11-23, so that the names of a folder stand in the order of their days.
std::string DateText(std::int64_t localSeconds) {
  const std::chrono::sys_seconds time{std::chrono::seconds{localSeconds}};
  const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(time)};
  return std::to_string(int{day.year()}) + "-" + TwoDigits(unsigned{day.month()}) + "-" +
         TwoDigits(unsigned{day.day()});
}

}  // namespace

std::string SerialName(const std::string& row) {
  constexpr std::size_t longest = 40;
  constexpr std::ptrdiff_t behindWord = 4;
  std::string name = Mid(row, behindWord, static_cast<std::ptrdiff_t>(row.size())).value_or("");
  std::erase_if(name, [](char c) { return !MayStand(c); });
  name = name.substr(0, longest);
  return std::string(Trim(name));
}

std::string SuggestedName(const std::string& row, std::int64_t localSeconds) {
  const std::string serial = SerialName(row);
  return (serial.empty() ? "radio" : serial) + " " + DateText(localSeconds) + ".txt";
}

}  // namespace quillmark
