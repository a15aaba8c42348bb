#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace quillmark {

// A path as single-byte text, for boxes and captions only: what Latin-1 lacks becomes "?".
std::string PathText(const std::filesystem::path& path);

// The system's text on an error, in the user's language, as single-byte text.
std::string ErrorText(const std::error_code& error);

}  // namespace quillmark
