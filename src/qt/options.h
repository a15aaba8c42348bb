#pragma once

#include <QStringList>
#include <optional>
#include <string>
#include <variant>

namespace quillmark {

// What the command line asks for.
struct Options {
  std::string Port;  // a device; empty: the port that is stored
  bool Dark = false;
};

// A run's options, or what is to be printed instead, and where the program ends with which code.
struct Printed {
  std::string Text;
  int ExitCode = 0;
};

std::variant<Options, Printed> ReadOptions(const QStringList& arguments);

// The argument that asks for nothing but a text, if there is one. That needs no display.
std::optional<QString> TextAskedFor(int argc, const char* const* argv);

}  // namespace quillmark
