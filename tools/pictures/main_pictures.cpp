// How the pictures of the main window are taken.

#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <filesystem>

#include "pictures/report.h"
#include "pictures/window_pictures.h"
#include "qt/binding/qt_windows.h"
#include "qt/text/latin1.h"
#include "start/console.h"

namespace quillmark {

namespace {

// A save, a print and the read that follows take some seconds at the slowest rate.
constexpr Duration longestRun = Seconds(60);

constexpr int look = 10;  // ms between looks how far a print has come

// For a file name: "Radio Settings 1" as "radio-settings-1".
std::string FileName(std::string title) {
  for (char& c : title) {
    if (c == ' ') c = '-';
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return title;
}

}  // namespace

void WindowPictures::TakeMain() {
  frmOrvalent& main = console.Main();
  Picture(main, "quick-tasks");
  main.ButtonAdv.Click();
  for (int tab = 1; tab <= static_cast<int>(main.SettingsTab.Tabs.size()); ++tab) {
    main.SettingsTab.UserSelect(tab);
    const std::string title = main.SettingsTab.Tabs[static_cast<std::size_t>(tab - 1)];
    Picture(main, "tab-" + std::to_string(tab) + "-" + FileName(title));
  }
  TakeFound();
  main.ButtonAdv.Click();
  TakeSmallMain();
}

// The bar that finds a setting, and a filter.
void WindowPictures::TakeFound() {
  frmOrvalent& main = console.Main();
  main.mnuFind.Click();
  main.txtFind.UserEdit("delay");
  Picture(main, "find");
  main.cmdFindClose.Click();
  SettingRow& power = main.At(SettingId::PowerLevel);
  const std::string held = power.Text();
  power.Text = "PWR 25 dBm";
  main.mnuFilterFactory.Click();
  Picture(main, "changed-from-factory");
  main.mnuFilterFactory.Click();
  power.Text = held;
}

// As on the smallest screen.
void WindowPictures::TakeSmallMain() {
  frmOrvalent& main = console.Main();
  QWidget* window = windows.WindowOf(main);
  if (window == nullptr) return;
  const QSize usual = window->size();
  window->resize(640, 480);
  Picture(main, "quick-tasks-640x480");
  main.ButtonAdv.Click();
  main.SettingsTab.UserSelect(1);
  Picture(main, "tab-1-640x480");
  main.ButtonAdv.Click();
  window->resize(usual);
}

// A grab of the window lacks what stands over it.
void WindowPictures::TakePresetMenu() {
  frmOrvalent& main = console.Main();
  QWidget* window = windows.WindowOf(main);
  if (window == nullptr) return;
  auto* menu = window->findChild<QMenu*>(ToQt(main.mnuPreset.Name()));
  auto* place = window->findChild<QWidget*>(ToQt(main.cmdPre[0].Name()));
  Button& preset = main.cmdPre[0];
  const std::string caption = preset.Text();
  const double fontSize = preset.FontSize();
  const bool enabled = preset.Enabled();
  preset.Text = "North ridge";
  preset.FontSize = 9;
  preset.Enabled = true;
  main.PopupMenu(main.mnuPreset, preset);
  Settle();
  QPixmap picture = window->grab();
  QPainter(&picture).drawPixmap(place->mapTo(window, place->rect().bottomLeft()), menu->grab());
  menu->hide();
  preset.Text = caption;
  preset.FontSize = fontSize;
  preset.Enabled = enabled;
  Save(picture, "preset-menu");
}

void WindowPictures::TakePrint() {
  frmOrvalent& main = console.Main();
  dialogs.PdfFile = FileOf("report.pdf");
  QTimer looks;
  QObject::connect(&looks, &QTimer::timeout, &looks, [&] {
    if (!main.barRun.Visible() || main.barRun.Value() * 3 < main.barRun.Max()) return;
    looks.stop();
    Picture(main, "run-under-way");
  });
  looks.start(look);
  if (!main.cmdPrint.Click()) return;
  sound = sound && std::filesystem::exists(dialogs.PdfFile);
  WaitUntil(platform.Events, longestRun, [this] { return !console.Shared().RefreshRequested; });
}

}  // namespace quillmark
