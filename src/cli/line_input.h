#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "cli/cli_machine.h"

namespace quillmark {

// One line of a descriptor, without its end, 4096 bytes at most; events go on while nothing comes.
// Nothing at its end. Throws Failure when a signal has come.
std::optional<std::string> ReadLine(CliMachine& machine, int descriptor);

// Where a secret comes from. It never stands on the command line or in the environment.
struct SecretSource {
  int Descriptor = -1;         // below 0: not from there
  std::filesystem::path File;  // empty: not from there
};

// The first line of that source, or what a person types at the terminal, which does not show it, in
// the radio's alphabet. `prompt` is plain ASCII. Throws Failure.
std::string ReadSecret(CliMachine& machine, const SecretSource& source, const std::string& prompt);

}  // namespace quillmark
