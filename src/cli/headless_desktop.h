#pragma once

#include <cstdint>
#include <string>

#include "platform/desktop.h"
#include "qt/base/local_date.h"

namespace quillmark {

// A desktop that nobody sits at: there is nothing to open, to hear or to print on.
class HeadlessDesktop : public Desktop {
 public:
  void OpenAddress(const std::string&) override {}
  void Beep() override {}
  void Copy(const std::string&) override {}
  std::string Surroundings() const override { return {}; }
  void Print(const PrintTarget&, const std::filesystem::path&, const std::string&) override {}
  void UseTheme(Theme) override {}
  std::string ShortDate() const override { return LocalShortDate(); }
  std::string DateAndTime(std::int64_t utcSeconds) const override {
    return LocalDateAndTime(utcSeconds);
  }
  double ScreenWidth() const override { return 28800; }
  double ScreenHeight() const override { return 16200; }
};

}  // namespace quillmark
