#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/dialogs.h"

namespace quillmark {

// How light the windows are.
enum class Theme { Light, Dark, AsDesktop };

// What the desktop does for the program outside of its windows.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Opens a web address in the user's browser.
  virtual void OpenAddress(const std::string& address) = 0;
  virtual void Beep() = 0;
  // Puts the text on the clipboard.
  virtual void Copy(const std::string& text) = 0;
  // What the program runs on, a line each: the toolkit, the system, the window system.
  virtual std::string Surroundings() const = 0;
  // Prints a text file: pages in fixed width under `title`, with the date and page numbers. Tells
  // the user itself when that fails.
  virtual void Print(const PrintTarget& target, const std::filesystem::path& file,
                     const std::string& title) = 0;
  // All windows, at once.
  virtual void UseTheme(Theme theme) = 0;
  // Today's date in the short form of the user's locale.
  virtual std::string ShortDate() const = 0;
  // A moment's date, in the same form, and time of day to the second, in the user's time zone.
  // `utcSeconds` since 1970.
  virtual std::string DateAndTime(std::int64_t utcSeconds) const = 0;
  // The main screen's size in twips (1440 to the inch at 100 %).
  virtual double ScreenWidth() const = 0;
  virtual double ScreenHeight() const = 0;
};

}  // namespace quillmark
