#pragma once

namespace quillmark {

// The program's own version.
constexpr const char* VersionText = "1.0.0";

}  // namespace quillmark
