#pragma once

#include <filesystem>
#include <string>

namespace quillmark {

// A configuration file whole, for whoever writes it back.

// The largest number of lines that is taken; a radio is sent fewer.
inline constexpr std::size_t MostEditedLines = 1000;

struct ConfigFile {
  std::string Bytes;
  std::string Refusal;  // a sentence for the user: why nothing was taken
};

// Refuses what readers of configurations refuse, and what is no configuration. Throws nothing.
ConfigFile ReadConfigFile(const std::filesystem::path& path);

// Writes the whole file, or leaves it as it stands. `dataFolder` is the user's. Throws FileError.
void WriteConfigFile(const std::filesystem::path& path, const std::string& bytes,
                     const std::filesystem::path& dataFolder);

}  // namespace quillmark
