#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <random>
#include <string>

#include "platform/desktop.h"
#include "platform/program_files.h"
#include "platform/random_source.h"
#include "qt/desktop/theme.h"

namespace quillmark {

// The user's desktop, through Qt. Made once by the program.
class QtDesktop : public Desktop {
 public:
  // Where it tells of trouble. Without it nothing is told.
  void TellThrough(Dialogs& next) { dialogs = &next; }

  void OpenAddress(const std::string& address) override;
  void Beep() override;
  void Copy(const std::string& text) override;
  std::string Surroundings() const override;
  void Print(const PrintTarget& target, const std::filesystem::path& file,
             const std::string& title) override;
  void UseTheme(Theme theme) override { setter.Use(theme); }
  std::string ShortDate() const override;
  double ScreenWidth() const override;
  double ScreenHeight() const override;

 private:
  Dialogs* dialogs = nullptr;
  ThemeSetter setter;
};

// Shipped files lie in share/quillmark-console, beside the program's folder when it is installed
// and inside it in a build folder; the user's own under $XDG_DATA_HOME, else ~/.local/share.
class QtProgramFiles : public ProgramFiles {
 public:
  std::filesystem::path Shipped() const override;
  std::filesystem::path Data() const override;
  std::error_code Settle(const std::filesystem::path& fileOrFolder) const override;
};

// Chance that can be repeated: the same seed gives the same numbers.
class QtRandom : public RandomSource {
 public:
  void Seed(std::uint32_t seed) override { generator.seed(seed); }
  double Next() override { return std::uniform_real_distribution<double>(0, 1)(generator); }

 private:
  std::mt19937 generator;
};

// The user's own folders: ConfigFolder holds the preferences, QtProgramFiles::Data the rest.
// Without HOME they lie in the home folder of the account. Both are empty where even that is
// missing.
std::filesystem::path ConfigFolder();
// Why the program can't be started, as a sentence: one of the two folders is missing.
std::optional<std::string> FolderTrouble();

}  // namespace quillmark
