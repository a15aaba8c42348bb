#pragma once

#include <random>

#include "platform/desktop.h"
#include "platform/program_files.h"
#include "platform/random_source.h"

namespace quillmark {

// The person's desktop, through Qt. Made once by the program.
class QtDesktop : public Desktop {
 public:
  // Where it tells of trouble; silent without. The dialogs outlive it.
  void TellThrough(Dialogs& next) { dialogs = &next; }

  void OpenAddress(const std::string& address) override;
  void Beep() override;
  void Print(const PrintTarget& target, const std::filesystem::path& file,
             const std::string& title) override;
  std::string ShortDate() const override;
  double ScreenWidth() const override;
  double ScreenHeight() const override;

 private:
  Dialogs* dialogs = nullptr;
};

// Shipped files lie in share/quillmark-console, beside the program's folder when it is installed
// and inside it in a build folder; the person's own under $XDG_DATA_HOME, else ~/.local/share.
class QtProgramFiles : public ProgramFiles {
 public:
  std::filesystem::path Shipped() const override;
  std::filesystem::path Data() const override;
};

class QtRandom : public RandomSource {
 public:
  void Seed(std::uint32_t seed) override { generator.seed(seed); }
  double Next() override { return std::uniform_real_distribution<double>(0, 1)(generator); }

 private:
  std::mt19937 generator;
};

// The program's folder in one of the person's own: the environment variable if it holds an absolute
// path, else `fallback` under the home directory.
std::filesystem::path UserFolder(const char* variable, const char* fallback);

}  // namespace quillmark
