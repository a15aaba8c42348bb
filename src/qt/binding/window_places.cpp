#include "qt/binding/window_places.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <algorithm>
#include <sstream>

#include "qt/base/program_files.h"

namespace quillmark {

namespace {

// As much of a window's upper edge must be on a screen that the user can take hold of it.
constexpr int leastEdge = 100;       // pixels
constexpr int edgeHeight = 20;       // pixels
constexpr int longestSide = 32'000;  // pixels; what is larger is no size

constexpr std::size_t placeNumbers = 5;  // left, top, width, height, and 1 for a maximized window

std::string NameOf(const QObject& object) { return object.objectName().toStdString(); }

std::string BorderKey(const QWidget& window, const QSplitter& splitter) {
  return NameOf(window) + "." + NameOf(splitter);
}

std::string Text(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) text += (text.empty() ? "" : " ") + std::to_string(number);
  return text;
}

// On a border: the user has moved it.
constexpr const char* movedProperty = "moved";

// A border is put back a few pixels off while its window is not shown yet. If that were remembered,
// each start would move it on.
void NoteMovesIn(const QWidget& window) {
  for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
    QObject::connect(splitter, &QSplitter::splitterMoved, splitter,
                     [splitter] { splitter->setProperty(movedProperty, true); });
  }
}

bool AnyHidden(const QSplitter& splitter) {
  for (int i = 0; i < splitter.count(); ++i) {
    if (splitter.widget(i)->isHidden()) return true;
  }
  return false;
}

}  // namespace

WindowPlaces::WindowPlaces(std::filesystem::path file, Screens itsScreens)
    : store(std::move(file)), screens(std::move(itsScreens)) {}

std::filesystem::path WindowPlaces::UsualFile() { return ConfigFolder() / "windows.ini"; }

std::vector<ScreenArea> WindowPlaces::RealScreens() {
  std::vector<ScreenArea> areas;
  for (const QScreen* screen : QGuiApplication::screens()) {
    areas.push_back({screen->geometry(), screen->availableGeometry()});
  }
  return areas;
}

// "Screens 1920x1080+0+0 1280x1024+1920+0", whatever the order in which the system tells them.
std::string WindowPlaces::Section() const {
  std::vector<std::string> names;
  for (const ScreenArea& screen : screens()) {
    const QRect& at = screen.Whole;
    names.push_back(" " + std::to_string(at.width()) + "x" + std::to_string(at.height()) + "+" +
                    std::to_string(at.left()) + "+" + std::to_string(at.top()));
  }
  std::ranges::sort(names);
  std::string section = "Screens";
  for (const std::string& name : names) section += name;
  return section;
}

std::vector<int> WindowPlaces::Numbers(const std::string& key, std::size_t count) const {
  std::istringstream in(store.ReadPath(Section(), key));
  std::vector<int> numbers;
  for (int number = 0; numbers.size() <= count && in >> number;) numbers.push_back(number);
  const bool sound = in.eof() && numbers.size() == count &&
                     std::ranges::all_of(numbers, [](int n) { return std::abs(n) < longestSide; });
  return sound ? numbers : std::vector<int>();
}

bool WindowPlaces::OnScreen(const QRect& place) const {
  const QRect edge(place.topLeft(), QSize(place.width(), edgeHeight));
  const auto all = screens();
  return std::ranges::any_of(all, [&edge](const ScreenArea& screen) {
    const QRect seen = screen.Free.intersected(edge);
    return seen.width() >= leastEdge && seen.height() == edgeHeight;
  });
}

void WindowPlaces::PutBackBorder(QSplitter& splitter, const std::string& key) const {
  const auto sizes = Numbers(key, static_cast<std::size_t>(splitter.count()));
  if (std::ranges::any_of(sizes, [](int size) { return size <= 0; })) return;
  if (!sizes.empty()) splitter.setSizes(QList<int>(sizes.begin(), sizes.end()));
}

bool WindowPlaces::PutBack(QWidget& window) const {
  NoteMovesIn(window);
  const auto numbers = Numbers(NameOf(window), placeNumbers);
  if (numbers.empty() || numbers[2] <= 0 || numbers[3] <= 0) return false;
  const QRect place(numbers[0], numbers[1], numbers[2], numbers[3]);
  window.resize(place.size());
  for (QSplitter* splitter : window.findChildren<QSplitter*>()) {
    PutBackBorder(*splitter, BorderKey(window, *splitter));
  }
  if (!OnScreen(place)) return false;
  window.move(place.topLeft());
  if (numbers[4] == 1) window.setWindowState(window.windowState() | Qt::WindowMaximized);
  return true;
}

// One entry at a time would read and write the file for each.
void WindowPlaces::Note(const QWidget& window) {
  const bool maximized = window.isMaximized() || window.isFullScreen();
  const QRect place = maximized ? window.normalGeometry() : QRect(window.pos(), window.size());
  const int taken = window.property(heightTakenProperty).toInt();
  const std::string section = Section();
  std::vector<IniPreferenceStore::Entry> entries{
      {section, NameOf(window),
       Text(
           {place.left(), place.top(), place.width(), place.height() + taken, maximized ? 1 : 0})}};
  for (const QSplitter* splitter : window.findChildren<QSplitter*>()) {
    // Where a part is hidden the border stands nowhere.
    if (AnyHidden(*splitter) || !splitter->property(movedProperty).toBool()) continue;
    const QList<int> sizes = splitter->sizes();
    entries.push_back({section, BorderKey(window, *splitter), Text({sizes.begin(), sizes.end()})});
  }
  const auto isNews = [this](const IniPreferenceStore::Entry& entry) {
    return store.ReadPath(entry.Section, entry.Key) != entry.Value;
  };
  if (std::ranges::any_of(entries, isNews)) store.WritePaths(entries);
}

}  // namespace quillmark
