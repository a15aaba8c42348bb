#pragma once

namespace quillmark {

// The program's own version.
constexpr int VersionMajor = 1;
constexpr int VersionMinor = 0;
constexpr int VersionRevision = 0;
constexpr const char* VersionText = "1.0.0";

}  // namespace quillmark
