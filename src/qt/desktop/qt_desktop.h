#pragma once

#include <filesystem>
#include <string>

#include "platform/desktop.h"
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
  std::string DateAndTime(std::int64_t utcSeconds) const override;
  double ScreenWidth() const override;
  double ScreenHeight() const override;

 private:
  Dialogs* dialogs = nullptr;
  ThemeSetter setter;
};

}  // namespace quillmark
