// F1 in each window, and the manual beside windows that wait for their user.

#include "qt/help/help_key.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QWindow>

#include "e2e/program_fixture.h"
#include "pictures/report.h"
#include "qt/binding/window_registry.h"
#include "qt/help/help_view.h"
#include "qt/window_forms.h"

namespace quillmark {
namespace {

// Follows what Qt tells a window about whether a modal one blocks it.
class BlockWatch : public QObject {
 public:
  bool Blocked = false;
  int Times = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::WindowBlocked) ++Times;
    if (event->type() == QEvent::WindowBlocked) Blocked = true;
    if (event->type() == QEvent::WindowUnblocked) Blocked = false;
    return false;
  }
};

struct HelpKeys : testing::Test {
  // The window of the manual, or null.
  QWidget* Shown() {
    const Form* form = machine.Shown.FormNamed("frmHelp");
    return form == nullptr ? nullptr : machine.Shown.WindowOf(*form);
  }
  // The name of its page; empty when it is closed.
  std::string Page() {
    QWidget* window = Shown();
    return window == nullptr ? "" : window->findChild<ManualBrowser*>()->Shown().toStdString();
  }
  static void PressIn(QWidget& window, Qt::Key key) {
    Press(window.focusWidget() != nullptr ? *window.focusWidget() : window, key);
  }
  // Without what its timers would do.
  std::shared_ptr<Form> ShowStill(const std::string& name) {
    auto form = forms.Make(name);
    for (Control* control : form->Controls()) {
      if (auto* timer = dynamic_cast<Timer*>(control)) timer->Enabled = false;
    }
    platform.Windows.Show(form);
    return form;
  }
  void ExpectPage(const std::string& page) {
    EXPECT_EQ(Page(), page);
    const auto* list = Shown()->findChild<QListWidget*>();
    EXPECT_EQ(list->currentItem()->data(Qt::UserRole).toString().toStdString(), page);
    EXPECT_TRUE(Manual(QStringLiteral(":/manual")).Has(QString::fromStdString(page)));
  }
  ~HelpKeys() override { machine.Shown.CloseAll(); }

  Machine machine;
  ReportDialogs boxes;
  Platform platform = machine.AsPlatform(boxes);
  Console console{platform};
  WindowForms forms{platform, console};
  HelpKey key{[this](const std::string& page) { console.OpenManual(page); }};
};

TEST_F(HelpKeys, OpenTheManualAtThePageOfEachWindow) {
  for (const WindowRow& row : AllWindows()) {
    SCOPED_TRACE(std::string(row.Name));
    const auto form = ShowStill(std::string(row.Name));
    // Anything but the page that is expected.
    if (!row.Help.empty()) console.OpenManual(row.Help == "keyboard" ? "wire-dialect" : "keyboard");
    PressIn(*machine.Shown.WindowOf(*form), Qt::Key_F1);
    if (row.Help.empty()) {
      EXPECT_EQ(Shown() != nullptr, row.Name == "frmHelp");
    } else {
      ExpectPage(std::string(row.Help));
    }
    if (Form* help = machine.Shown.FormNamed("frmHelp")) help->Unload();
    if (!row.Main) form->Unload();
  }
}

TEST_F(HelpKeys, TheManualCanBeUsedWhileAWindowAndABoxWait) {
  platform.Windows.Show(console.Main().shared_from_this());
  console.OpenManual("wire-dialect");
  BlockWatch watch;
  Shown()->windowHandle()->installEventFilter(&watch);
  Hand hand;
  const auto usable = [&](QWidget&) { return watch.Times > 0 && !watch.Blocked; };
  hand.Plan(
      "frmPreferences",
      [&](QWidget& window) {
        PressIn(window, Qt::Key_F1);
        EXPECT_EQ(Page(), "store-and-files");
        watch.Times = 0;
        machine.Boxes.Message({"Go on?", "Title", Icon::Question, Buttons::YesNo});
        PressIn(*Shown(), Qt::Key_Escape);
        EXPECT_EQ(Shown(), nullptr);
        PressIn(window, Qt::Key_F1);
        EXPECT_EQ(Shown()->windowHandle()->transientParent(), window.windowHandle());
        PressIn(window, Qt::Key_Escape);
      },
      usable);
  hand.Plan(
      "MessageBox",
      [&](QWidget& box) {
        console.OpenManual("wire-dialect");
        PressIn(box, Qt::Key_F1);
        EXPECT_EQ(Page(), "store-and-files");
        PressIn(box, Qt::Key_Escape);
      },
      usable);
  hand.Start();
  platform.Windows.ShowModal(forms.Make("frmPreferences"), console.Main());
  EXPECT_TRUE(hand.Done());
  machine.Events.Pump();
  const QWindow* main = machine.Shown.WindowOf(console.Main())->windowHandle();
  EXPECT_EQ(Shown()->windowHandle()->transientParent(), main);
}

}  // namespace
}  // namespace quillmark
