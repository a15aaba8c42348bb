#include "qt/binding/window_places.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QMainWindow>
#include <QSplitter>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <memory>

#include "pictures/report.h"
#include "qt/binding/window_fit.h"
#include "qt/binding/window_registry.h"
#include "qt/machine.h"
#include "qt/window_forms.h"

namespace quillmark {
namespace {

const ScreenArea laptop{{0, 0, 1280, 800}, {0, 0, 1280, 770}};
const ScreenArea desk{{1280, 0, 1920, 1080}, {1280, 0, 1920, 1050}};

struct SplitWindow : QWidget {
  SplitWindow() {
    setObjectName("frmSplit");
    border->setObjectName("border");
    for (int i = 0; i < 2; ++i) border->addWidget(new QLabel("part"));
    (new QVBoxLayout(this))->addWidget(border);
  }
  QSplitter* border = new QSplitter;
};

TEST(WindowPlaces, AreKeptForEachSetOfScreensAndNotUsedOffAllOfThem) {
  const QTemporaryDir folder;
  const std::filesystem::path file = folder.filePath("windows.ini").toStdString();
  std::vector<ScreenArea> screens{laptop, desk};
  const auto given = [&screens] { return screens; };
  {
    WindowPlaces places(file, given);
    SplitWindow window;
    EXPECT_FALSE(places.PutBack(window));
    window.setGeometry(1500, 100, 700, 500);
    window.border->setSizes({200, 400});
    emit window.border->splitterMoved(200, 1);
    places.Note(window);
  }
  const auto putBack = [&](QRect expected, bool placed) {
    const WindowPlaces places(file, given);
    SplitWindow window;
    window.setGeometry(5, 6, 300, 200);
    EXPECT_EQ(places.PutBack(window), placed);
    EXPECT_EQ(window.geometry(), expected);
    return window.border->sizes();
  };
  const QList<int> sizes = putBack({1500, 100, 700, 500}, true);
  EXPECT_GT(sizes[1], sizes[0] * 3 / 2);
  // What nobody has moved stays as it was moved last.
  {
    WindowPlaces places(file, given);
    SplitWindow window;
    places.PutBack(window);
    window.border->setSizes({400, 200});
    places.Note(window);
  }
  // The order in which the system tells the screens is nothing to the user.
  std::swap(screens[0], screens[1]);
  EXPECT_EQ(putBack({1500, 100, 700, 500}, true), sizes);
  screens = {laptop};
  putBack({5, 6, 300, 200}, false);

  const struct {
    const char* Entry;
    QRect Expected;
    bool Placed;
  } cases[] = {
      {"20 30 600 400 0", {20, 30, 600, 400}, true},
      {"-560 30 600 400 0", {5, 6, 600, 400}, false},  // no hold of its edge
      {"20 760 600 400 0", {5, 6, 600, 400}, false},   // below the free part
      {"3000 30 600 400 0", {5, 6, 600, 400}, false},
      {"20 30 0 400 0", {5, 6, 300, 200}, false},
      {"20 30 600 400", {5, 6, 300, 200}, false},
      {"20 30 600 x 0", {5, 6, 300, 200}, false},
      {"20 30 600 99999999999 0", {5, 6, 300, 200}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Entry);
    IniPreferenceStore(file).Write("Screens 1280x800+0+0", "frmSplit", c.Entry);
    putBack(c.Expected, c.Placed);
  }
}

TEST(WindowFit, EachWindowDoesWithTheSmallestScreen) {
  Machine machine;
  ReportDialogs boxes;
  Platform platform = machine.AsPlatform(boxes);
  Console console(platform);
  const QRect screen(0, 0, 640, 480);
  for (const WindowRow& row : AllWindows()) {
    const std::unique_ptr<QWidget> window(MakeWindow(row, nullptr));
    const QSize room = RoomOn(screen, *window);
    FitInto(*window, room);
    const QSize least = window->minimumSizeHint().expandedTo(window->minimumSize());
    EXPECT_LE(least.width(), room.width()) << row.Name;
    EXPECT_LE(least.height(), room.height()) << row.Name;
  }
  EXPECT_EQ(Within(screen, {600, -20}, {200, 100}), QPoint(440, 0));
  // At least its beginning is seen.
  EXPECT_EQ(Within(screen, {10, 10}, {700, 500}), QPoint(0, 0));
}

}  // namespace
}  // namespace quillmark
