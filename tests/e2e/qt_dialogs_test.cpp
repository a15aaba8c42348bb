#include "qt/qt_dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "qt/qt_event_loop.h"

namespace quillmark {
namespace {

// A box that comes up over a window which goes away before anybody answers.
class BoxOverAWindow : public testing::Test {
 protected:
  BoxOverAWindow() {
    // A test before may have ended its program; the next loop is a new one's.
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QApplication::exec();
    mainWindow.show();
    QObject::connect(&look, &QTimer::timeout, [this] { Look(); });
    look.start(5);
  }

  void Over(const char* name) {
    owner = new QWidget(&mainWindow, Qt::Window);
    owner->setObjectName(QLatin1String(name));
    owner->show();
    owner->activateWindow();
    QCoreApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), owner);
  }
  // First the owner goes, then the box that is there is answered.
  void Look() {
    QWidget* box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    if (!owner.isNull()) {
      ownersOfBoxes.push_back(box->parentWidget()->objectName());
      delete owner.data();
      return;
    }
    if (auto* line = box->findChild<QLineEdit*>("inputLine")) line->setText("typed");
    auto* yes = box->findChild<QPushButton*>("Yes");
    (yes != nullptr ? yes : box->findChild<QPushButton*>("Ok"))->click();
  }

  QtEventLoop events;
  QtDialogs dialogs{events};
  QWidget mainWindow;
  QPointer<QWidget> owner;
  QTimer look;
  QStringList ownersOfBoxes;
};

TEST_F(BoxOverAWindow, WaitsForItsAnswerAllTheSame) {
  mainWindow.setObjectName("main");
  // The window that closes by itself is no box's owner.
  const struct {
    const char* Window;
    const char* Owner;
  } cases[] = {{"frmSplash", "main"}, {"frmLogin", "frmLogin"}};
  for (const auto& c : cases) {
    Over(c.Window);
    EXPECT_EQ(dialogs.Message({"Go on?", "Title", Icon::Question, Buttons::YesNo}), Answer::Yes)
        << c.Window;
    EXPECT_EQ(ownersOfBoxes.takeLast(), c.Owner);
    Over(c.Window);
    EXPECT_EQ(dialogs.Input({"Name", "Title", "default"}), "typed") << c.Window;
    EXPECT_EQ(ownersOfBoxes.takeLast(), c.Owner);
  }
}

}  // namespace
}  // namespace quillmark
