#pragma once

#include <string>

namespace quillmark {

// How a command ends, as the program's exit code.
enum class Exit {
  Done = 0,
  Different = 1,    // or some settings were refused
  Usage = 2,        // nothing was done
  NoRadio = 3,      // or no port
  Denied = 4,       // the radio wants a login
  BadFile = 5,      // a file can't be used
  Interrupted = 6,  // by a signal, before anything was overwritten
  Incomplete = 7    // a run was cut: the radio may hold a part of it
};

// Thrown by whatever keeps a command from its end. Texts are Latin-1, in full sentences; line ends
// in them become blanks.
struct Failure {
  Exit Code;
  std::string Cause;
  std::string Cure{};  // empty: the usual one of the code
};

// What the desktop program advises about a port, in the words of the command line.
std::string InTheseWords(std::string advice);

// The one line for stderr, without its end: the cause and the cure, in UTF-8.
std::string SentenceOf(const Failure& failure);

}  // namespace quillmark
