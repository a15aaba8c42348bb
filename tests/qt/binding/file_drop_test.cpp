#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>
#include <QWidget>
#include <filesystem>
#include <vector>

#include "pictures/report.h"
#include "qt/machine.h"
#include "start/console.h"

namespace quillmark {
namespace {

// The question comes when the drop is over: the program that the file comes from waits for that.
TEST(FileDrop, OneFileOfThisMachineReachesTheLogicAfterTheDrop) {
  Machine machine;
  ReportDialogs dialogs;
  Platform platform = machine.AsPlatform(dialogs);
  Console console(platform);
  machine.Shown.Show(console.Main().shared_from_this());
  QWidget& window = *machine.Shown.WindowOf(console.Main());
  std::vector<std::filesystem::path> dropped;
  console.Main().OnDrop = [&](const std::filesystem::path& file) { dropped.push_back(file); };

  const QUrl file = QUrl::fromLocalFile(QStringLiteral("/sites/north & \u00e4.txt"));
  const struct {
    QList<QUrl> Urls;
    bool Taken;
  } cases[] = {
      {{}, false},
      {{QUrl(QStringLiteral("https://kelvor.example/a.txt"))}, false},
      {{file, file}, false},
      {{file}, true},
  };
  for (const auto& each : cases) {
    QMimeData data;
    data.setUrls(each.Urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    EXPECT_EQ(enter.isAccepted(), each.Taken);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    EXPECT_EQ(drop.isAccepted(), each.Taken);
    EXPECT_TRUE(dropped.empty());
  }
  for (int turn = 0; turn < 3; ++turn) machine.Events.Pump();
  ASSERT_EQ(dropped.size(), 1U);
  EXPECT_EQ(dropped[0], std::filesystem::path("/sites/north & \xC3\xA4.txt"));
  for (const auto* text : window.findChildren<QPlainTextEdit*>()) EXPECT_FALSE(text->acceptDrops());
}

}  // namespace
}  // namespace quillmark
