#include "history/copy_names.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <system_error>

#include "text/text.h"

namespace quillmark {

namespace {

namespace calendar = std::chrono;

bool IsWordChar(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// A number of that many digits; nothing for anything else.
std::optional<unsigned> Digits(std::string_view text) {
  unsigned number = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = end.ec == std::errc() && end.ptr == text.data() + text.size();
  return whole ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string TimeName(std::int64_t utcSeconds) {
  const calendar::sys_seconds time{calendar::seconds{utcSeconds}};
  const auto day = calendar::floor<calendar::days>(time);
  const calendar::year_month_day date{day};
  const calendar::hh_mm_ss clock{time - day};
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u_%02d-%02d-%02d", int{date.year()},
                unsigned{date.month()}, unsigned{date.day()},
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

std::optional<std::int64_t> TimeOfName(const std::string& stem) {
  constexpr std::string_view form = "0000-00-00_00-00-00";
  if (stem.size() < form.size()) return std::nullopt;
  const std::string_view name(stem);
  for (std::size_t i = 0; i < form.size(); ++i) {
    const bool digit = name[i] >= '0' && name[i] <= '9';
    if (form[i] == '0' ? !digit : name[i] != form[i]) return std::nullopt;
  }
  const auto part = [name](std::size_t at, std::size_t length) {
    return Digits(name.substr(at, length)).value_or(0);
  };
  const calendar::year_month_day date{calendar::year{static_cast<int>(part(0, 4))},
                                      calendar::month{part(5, 2)}, calendar::day{part(8, 2)}};
  if (!date.ok()) return std::nullopt;
  const calendar::seconds time = calendar::sys_days{date}.time_since_epoch() +
                                 calendar::hours{part(11, 2)} + calendar::minutes{part(14, 2)} +
                                 calendar::seconds{part(17, 2)};
  return time.count();
}

std::string FolderName(const std::string& serial) {
  constexpr std::size_t longest = 24;
  if (FindAnyCase(serial, "SN") != 1) return "";
  const std::string number(Trim(std::string_view(serial).substr(2)));
  const bool sound = number.size() <= longest && std::ranges::all_of(number, IsWordChar);
  return sound ? number : "";
}

}  // namespace quillmark
