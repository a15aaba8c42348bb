#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "config/config_values.h"

namespace quillmark {

// The lines of a configuration file that could be sent to a radio. Throws Failure when it can't be
// read, is too long, or sets nothing.
std::vector<std::string> ConfigurationIn(const std::filesystem::path& file);

// Which row of a comparison is shown, and the names of the two sides in JSON.
std::string JsonOf(const std::vector<ComparedValue>& rows);

}  // namespace quillmark
