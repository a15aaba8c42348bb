#include "cli/exit_codes.h"

#include "cli/utf8.h"

namespace quillmark {

namespace {

const char* UsualCure(Exit code) {
  switch (code) {
    case Exit::Usage:
      return "See \"quillmark --help\".";
    case Exit::NoRadio:
      return "See \"quillmark ports\"; --port names another one.";
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

std::string SentenceOf(const Failure& failure) {
  const std::string cure = failure.Cure.empty() ? UsualCure(failure.Code) : failure.Cure;
  return "quillmark: " + ToUtf8(OnOneRow(failure.Cause + (cure.empty() ? "" : " " + cure)));
}

}  // namespace quillmark
