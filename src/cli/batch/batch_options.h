#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

// What the command line says of a batch.
struct BatchOptions {
  std::filesystem::path Source;  // a file for all radios, or a folder with one for each
  std::filesystem::path Table;   // CSV; empty: none
  std::filesystem::path Report;
  std::vector<std::string> Ports;  // more than the one of --port
  std::size_t Count = 0;           // radios in the end; 0: until it is interrupted
  bool Yes = false;
  bool Force = false;
  bool Resume = false;
  int Worker = -1;  // this process serves one port, for the one at the other end of this socket
};

// What a worker and its parent tell each other: lines of CSV, whose first field is the word. The
// worker speaks in these, ...
inline constexpr const char* WorkerSays = "say";         // and a sentence for the user
inline constexpr const char* WorkerFound = "found";      // and a line without a result
inline constexpr const char* WorkerResults = "results";  // and a line
// ... and for each radio that it has found it gets one of these.
inline constexpr const char* ParentGoes = "go";
inline constexpr const char* ParentSkips = "skip";

}  // namespace quillmark
