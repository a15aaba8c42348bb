#include "cli/exit_codes.h"

#include <string_view>
#include <utility>

#include "cli/utf8.h"

namespace quillmark {

namespace {

const char* UsualCure(Exit code) {
  switch (code) {
    case Exit::Usage:
      return "See \"quillmark --help\".";
    case Exit::NoRadio:
      return "\"quillmark ports\" lists the ports.";
    case Exit::Denied:
      return "Log in first with \"quillmark login\".";
    case Exit::Interrupted:
      return "Start the command again.";
    case Exit::Incomplete:
      return "Read the radio, and start the command again.";
    case Exit::Done:
    case Exit::Different:
    case Exit::BadFile:
      break;
  }
  return "";
}

}  // namespace

std::string InTheseWords(std::string advice) {
  // Of the desktop program's windows, and here.
  constexpr std::pair<std::string_view, std::string_view> wordings[] = {
      {"choose another port under \"Serial Port\", \"Setup...\"", "name another one with --port"},
      {"click Connect...", "start the command again"},
  };
  for (const auto& [windows, here] : wordings) {
    const std::size_t at = advice.find(windows);
    if (at != std::string::npos) advice.replace(at, windows.size(), here);
  }
  return advice;
}

std::string SentenceOf(const Failure& failure) {
  const std::string cure = failure.Cure.empty() ? UsualCure(failure.Code) : failure.Cure;
  return "quillmark: " +
         ToUtf8(OnOneRow(InTheseWords(failure.Cause) + (cure.empty() ? "" : " " + cure)));
}

}  // namespace quillmark
