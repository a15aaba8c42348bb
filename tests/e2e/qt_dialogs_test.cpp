#include "qt/dialogs/qt_dialogs.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <fstream>

#include "e2e/program_fixture.h"
#include "qt/base/qt_event_loop.h"
#include "qt/desktop/printing.h"
#include "qt/dialogs/message_window.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

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

TEST(MessageWindow, EnterAnswersNothingThatCannotBeUndone) {
  const struct {
    Buttons Choice;
    bool Irreversible;
    Answer Enter;
  } cases[] = {
      {Buttons::YesNo, false, Answer::Yes},      {Buttons::YesNo, true, Answer::No},
      {Buttons::YesNoCancel, true, Answer::No},  {Buttons::OkCancel, false, Answer::Ok},
      {Buttons::OkCancel, true, Answer::Cancel},
  };
  QtEventLoop events;
  QtDialogs dialogs(events);
  for (const auto& c : cases) {
    std::string below;
    Hand hand;
    hand.Plan("MessageBox", [&](QWidget& box) {
      below = box.findChild<QLabel*>("messageDetails")->text().toStdString();
      QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
      QApplication::sendEvent(box.focusWidget(), &enter);
    });
    hand.Start();
    EXPECT_EQ(dialogs.Message({.Text = "Go on?",
                               .Symbol = Icon::None,
                               .Choice = c.Choice,
                               .Details = "This clears it.",
                               .Irreversible = c.Irreversible}),
              c.Enter);
    EXPECT_EQ(below, "This clears it.");
  }
}

// What a caption can't hold is not dropped in silence.
TEST(InputBox, RefusesWhatTheRadiosAlphabetDoesNotHave) {
  InputWindow box({"Name", "Title", "default"}, nullptr);
  auto* line = box.findChild<QLineEdit*>("inputLine");
  auto* trouble = box.findChild<QLabel*>("inputTrouble");
  box.show();
  const auto accept = [&](const QString& text) {
    line->setText(text);
    box.findChild<QPushButton*>("Ok")->click();
    return box.result() == QDialog::Accepted;
  };
  EXPECT_FALSE(accept(QString::fromUtf8("5 \xE2\x82\xAC \xF0\x9F\x93\xBB \xE2\x82\xAC")));
  EXPECT_TRUE(box.isVisible() && trouble->isVisible());
  EXPECT_EQ(trouble->text().toStdString(),
            "This can't be taken, because the radio's alphabet does not have: \xE2\x82\xAC "
            "\xF0\x9F\x93\xBB");
  line->setText("5");
  EXPECT_FALSE(trouble->isVisible());
  EXPECT_TRUE(accept(QString::fromUtf8("K\xC3\xBCste & 5")));
}

TEST(InputDialog, TellsWhatIsWrongAsItIsTypedAndSendsItAnyway) {
  QtEventLoop events;
  QtDialogs dialogs(events);
  const InputBox box{.Prompt = "Power",
                     .Title = "Title",
                     .Default = "30",
                     .Hint = "Radios take <20> to 30",
                     .Check = [](std::string_view typed) {
                       return typed == "30" ? "" : std::string(typed) + ": radios take 30";
                     }};
  Hand hand;
  hand.Plan("InputBox", [&box](QWidget& window) {
    const auto text = [&window](const char* name) {
      return window.findChild<QLabel*>(name)->text().toStdString();
    };
    auto& line = *window.findChild<QLineEdit*>("inputLine");
    auto& ok = *window.findChild<QPushButton*>("Ok");
    const QString usual = ok.text();
    EXPECT_EQ(text("inputHint"), box.Hint);
    EXPECT_EQ(line.accessibleDescription().toStdString(), box.Hint);
    EXPECT_EQ(text("inputProblem"), "");
    const int height = window.height();
    line.setText("4\u00e4");
    EXPECT_EQ(text("inputProblem"), "4\u00e4: radios take 30. The radio decides.");
    EXPECT_EQ(ok.text(), "Send anyway");
    line.setText("30");
    EXPECT_EQ(text("inputProblem"), "");
    EXPECT_EQ(ok.text(), usual);
    line.setText("45");
    QCoreApplication::processEvents();
    EXPECT_EQ(window.height(), height);
    ok.click();
  });
  hand.Start();
  EXPECT_EQ(dialogs.Input(box), "45");
  EXPECT_TRUE(hand.Done());
}

TEST(PrintDialog, WithoutAPrinterAsksForAPdfAndBeforeItReplacesOne) {
  if (HasPrinter()) GTEST_SKIP() << "this machine has a printer";
  const QTemporaryDir folder;
  const fs::path in = folder.path().toStdString();
  std::ofstream(in / "old.pdf") << "an older report";
  QtEventLoop events;
  QtDialogs dialogs(events);
  const auto enter = [](QWidget& dialog, const fs::path& name) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name.string()));
    static_cast<QDialog&>(dialog).accept();
  };
  const auto answer = [](QMessageBox::StandardButton button) {
    return [button](QWidget& box) { static_cast<QMessageBox&>(box).button(button)->click(); };
  };

  Hand hand;
  hand.Plan("FileDialog", [&](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save Report as PDF");
    EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "0123456.pdf");
    EXPECT_TRUE(static_cast<QFileDialog&>(dialog).directory().exists());
    // The question holds up the acceptance; what follows is done meanwhile.
    enter(dialog, in / "old.pdf");
  });
  hand.Plan("", answer(QMessageBox::No));
  hand.Plan("FileDialog", [&](QWidget& dialog) { enter(dialog, in / "old"); });
  hand.Plan("", answer(QMessageBox::Yes));
  hand.Start();
  const auto target = dialogs.ChoosePrinter("/tmp/0123456.txt", {});
  EXPECT_TRUE(hand.Done());
  ASSERT_TRUE(target.has_value());
  EXPECT_EQ(target->Printer, "");
  EXPECT_EQ(target->PdfFile, in / "old.pdf");

  hand.Plan("FileDialog", [](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
  hand.Start();
  EXPECT_FALSE(dialogs.ChoosePrinter("config.txt", {}).has_value());
}

}  // namespace
}  // namespace quillmark
