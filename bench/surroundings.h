#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <optional>
#include <string>

namespace quillmark::bench {

// What all measurements share: folders of the bench's own in place of the user's, where the
// programs are, and the options of the run. main makes one before the application; it outlives all
// measurements, and its folders go with it.
class Surroundings {
 public:
  // Points the environment of this process and its children to the folders. Throws
  // std::runtime_error when they cannot be made.
  Surroundings();

  int StreamSeconds = 60;       // length of the steady stream to the terminal
  int BatchRadios = 8;          // radios a port in a batch
  std::filesystem::path Tests;  // build folder of the tests; empty: the one of the daily build

  // A path inside of the folders; its parent exists.
  std::filesystem::path File(const std::string& name) const;
  // A program that was built beside this one. Throws std::runtime_error when it was not.
  std::filesystem::path Program(const std::string& name) const;
  static std::filesystem::path ThisProgram();

  // Processor time of the console while it has no port open and nothing to do, in ms for each
  // second that passes. Measured once in a run, when it is asked for first.
  double IdleRate();

 private:
  QTemporaryDir folder;
  std::optional<double> idleRate;
};

}  // namespace quillmark::bench
