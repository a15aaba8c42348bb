#pragma once

#include <QRect>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "qt/store/ini_preference_store.h"

class QSplitter;
class QWidget;

namespace quillmark {

// On a window, in pixels: what the program has taken off its height for a while.
inline constexpr const char* heightTakenProperty = "heightTaken";

// A screen, in logical pixels: all of it, and what panels leave of it.
struct ScreenArea {
  QRect Whole;
  QRect Free;
};

// Where the user has put the windows, how large they are, and where the borders stand that the user
// can move in them: between runs, and for each set of screens by itself. Kept in an INI file of its
// own, in which trouble is told on stderr alone.
class WindowPlaces {
 public:
  using Screens = std::function<std::vector<ScreenArea>()>;

  explicit WindowPlaces(std::filesystem::path file, Screens screens = RealScreens);
  // windows.ini beside the preferences.
  static std::filesystem::path UsualFile();
  static std::vector<ScreenArea> RealScreens();

  // Gives a window that is not shown yet the size and the borders that it had with these screens,
  // and its place if that is still on one of them. True when it is.
  bool PutBack(QWidget& window) const;
  // Remembers them, at the end of a window.
  void Note(const QWidget& window);

 private:
  // The numbers of an entry; none when it has not that many, or other things.
  std::vector<int> Numbers(const std::string& key, std::size_t count) const;
  void PutBackBorder(QSplitter& splitter, const std::string& key) const;
  std::string Section() const;
  bool OnScreen(const QRect& place) const;

  IniPreferenceStore store;
  Screens screens;
};

}  // namespace quillmark
