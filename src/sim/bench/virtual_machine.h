#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/preference_store.h"
#include "platform/program_files.h"
#include "platform/random_source.h"

namespace quillmark::sim {

// The rest of the virtual machine: a store in memory, folders of its own, a desktop that remembers
// what it was asked for, and a random source that gives the same numbers in every run.

// Preferences that last as long as the bench.
class MemoryStore : public PreferenceStore {
 public:
  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) const override {
    const auto at = values.find({section, key});
    return at == values.end() ? fallback : at->second;
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    values[{section, key}] = value;
  }
  std::string ReadPath(const std::string& section, const std::string& key) const override {
    return Read(section, key, "");
  }
  void WritePaths(const std::vector<Entry>& entries) override {
    for (const Entry& each : entries) Write(each.Section, each.Key, each.Value);
  }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values;
};

// Folders under the system's folder for temporary files, removed with the object.
class ScratchFiles : public ProgramFiles {
 public:
  ScratchFiles();
  ~ScratchFiles() override;
  ScratchFiles(const ScratchFiles&) = delete;
  ScratchFiles& operator=(const ScratchFiles&) = delete;

  std::filesystem::path Root() const { return root; }
  std::filesystem::path Shipped() const override { return root / "shipped"; }
  std::filesystem::path Data() const override { return root / "data"; }
  // Nothing here has to outlast a power failure.
  std::error_code Settle(const std::filesystem::path&) const override { return {}; }

 private:
  std::filesystem::path root;
};

// Does nothing, and remembers what it was asked to do.
class RecordingDesktop : public Desktop {
 public:
  void OpenAddress(const std::string& address) override { Addresses.push_back(address); }
  void Beep() override { ++Beeps; }
  void Copy(const std::string& text) override { Copied = text; }
  std::string Surroundings() const override { return "Toolkit 1.2\r\nSystem 3"; }
  void Print(const PrintTarget& target, const std::filesystem::path& file,
             const std::string& title) override;
  void UseTheme(Theme theme) override { Used = theme; }
  std::string ShortDate() const override { return Date; }
  std::string DateAndTime(std::int64_t utcSeconds) const override;
  double ScreenWidth() const override { return 28800; }
  double ScreenHeight() const override { return 16200; }

  // A file that was printed, as it was then.
  struct Printed {
    PrintTarget Target;
    std::filesystem::path File;
    std::string Title;
    std::string Text;
  };

  std::vector<std::string> Addresses;
  std::vector<Printed> Prints;
  int Beeps = 0;
  std::string Copied;
  std::optional<Theme> Used;  // last
  std::string Date = "11/22/2026";
};

// The same numbers in every run, or one fixed number.
class RepeatableRandom : public RandomSource {
 public:
  // The seed from the clock is remembered, not used.
  void Seed(std::uint32_t seed) override { Seeds.push_back(seed); }
  double Next() override { return Fixed >= 0 ? Fixed : spread(engine); }

  double Fixed = -1;  // from 0: every number is this one
  std::vector<std::uint32_t> Seeds;

 private:
  std::mt19937 engine{1};
  std::uniform_real_distribution<double> spread{0, 1};
};

}  // namespace quillmark::sim
