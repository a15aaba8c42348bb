#pragma once

#include <string>

namespace quillmark {

// What the desktop does for the program outside of its windows.
class Desktop {
 public:
  virtual ~Desktop() = default;

  // Opens a web address in the user's browser.
  virtual void OpenAddress(const std::string& address) = 0;
  virtual void Beep() = 0;
  // The main screen's size in twips (1440 to the inch at 100 %).
  virtual double ScreenWidth() const = 0;
  virtual double ScreenHeight() const = 0;
};

}  // namespace quillmark
