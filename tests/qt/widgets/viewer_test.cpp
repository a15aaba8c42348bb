#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolTip>
#include <memory>
#include <stdexcept>

#include "config/presets/frmViewer.h"
#include "qt/base/qt_event_loop.h"
#include "qt/binding/form_window.h"
#include "qt/binding/qt_windows.h"
#include "qt/widgets/text_page.h"

namespace quillmark {
namespace {

// A form in its window, with hands for the keyboard.
class ShownForm {
 public:
  explicit ShownForm(std::shared_ptr<Form> shown) : form(std::move(shown)) {
    windows.Show(form);
    window = windows.WindowOf(*form);
    window->activateWindow();
    events.Pump();
  }

  // What the window listens to wherever the focus is goes first; the rest to who has the focus.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const QKeySequence sequence(QKeyCombination(modifiers, key));
    for (QShortcut* shortcut : window->findChildren<QShortcut*>()) {
      if (shortcut->key() != sequence || !shortcut->isEnabled()) continue;
      emit shortcut->activated();
      return;
    }
    QWidget* focus = window->focusWidget() == nullptr ? window : window->focusWidget();
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(focus, &press);
  }
  template <class Widget>
  Widget& Find() const {
    return *window->findChild<Widget*>();
  }

  QtEventLoop events;
  QtWindows windows{events};
  std::shared_ptr<Form> form;
  QWidget* window = nullptr;
};

class Viewer : public testing::Test {
 protected:
  static std::shared_ptr<frmViewer> MakeForm() {
    auto form = std::make_shared<frmViewer>();
    form->txtViewer.Text = "MODE M\r\n<b>mode</b> x\rmOdE R\r\n";
    return form;
  }
  void Type(const QString& word) {
    line.setText(word);
    emit line.textEdited(word);
  }
  int FoundAt() const { return page.textCursor().selectionStart(); }
  std::string Outcome() const {
    for (QLabel* label : line.parentWidget()->findChildren<QLabel*>()) {
      if (label->buddy() == nullptr) return label->text().toStdString();
    }
    throw std::logic_error("no outcome");
  }

  ShownForm shown{MakeForm()};
  TextPage& page = shown.Find<TextPage>();
  QLineEdit& line = shown.Find<QLineEdit>();
};

TEST_F(Viewer, ShowsItsTextToReadOnly) {
  EXPECT_EQ(page.toPlainText().toStdString(), "MODE M\n<b>mode</b> x\nmOdE R\n");
  shown.Press(Qt::Key_X);
  shown.Press(Qt::Key_Delete);
  EXPECT_EQ(page.toPlainText().size(), 28);
  shown.Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(page.textCursor().selectedText().size(), 28);
  shown.Press(Qt::Key_Return);
  EXPECT_FALSE(shown.form->Loaded());
}

TEST_F(Viewer, MarksTheLinesThatTheRadioWillNotTake) {
  auto& viewer = static_cast<frmViewer&>(*shown.form);
  auto& problems = *shown.window->findChild<QLabel*>("lblProblems");
  EXPECT_TRUE(page.extraSelections().isEmpty());
  EXPECT_TRUE(problems.isHidden());
  viewer.ShowLines({"MODE M", "PWR 45 <b>", "LPM 1"}, {});
  ASSERT_EQ(page.extraSelections().size(), 1);
  const QTextCursor marked = page.extraSelections().front().cursor;
  EXPECT_EQ(marked.selectedText(), "PWR 45 <b>");
  EXPECT_EQ(problems.text(),
            "The radio will not take 1 line:\nline 2: PWR 45 <b>, radios take 20 to 30 dBm");
  EXPECT_TRUE(problems.isVisible());
  const QPoint place = page.cursorRect(marked).center();
  QHelpEvent hover(QEvent::ToolTip, place, page.viewport()->mapToGlobal(place));
  QCoreApplication::sendEvent(page.viewport(), &hover);
  EXPECT_EQ(QToolTip::text(), "<qt>PWR 45 &lt;b&gt;: radios take 20 to 30 dBm</qt>");
}

TEST_F(Viewer, FindsWordsForwardsAndBackwardsAndAround) {
  EXPECT_TRUE(line.parentWidget()->isHidden());
  shown.Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(shown.window->focusWidget(), &line);
  Type("mode");
  EXPECT_EQ(FoundAt(), 0);
  const struct {
    const char* What;
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
    int At;
    const char* Outcome;
  } cases[] = {
      {"next", Qt::Key_F3, {}, 10, ""},
      {"next by Enter", Qt::Key_Return, {}, 21, ""},
      {"around", Qt::Key_Enter, {}, 0, "Went on from the beginning"},
      {"around backwards", Qt::Key_F3, Qt::ShiftModifier, 21, "Went on from the end"},
      {"previous by Enter", Qt::Key_Return, Qt::ShiftModifier, 10, ""},
  };
  for (const auto& c : cases) {
    shown.Press(c.Key, c.Modifiers);
    EXPECT_EQ(FoundAt(), c.At) << c.What;
    EXPECT_EQ(Outcome(), c.Outcome) << c.What;
  }
  Type("moderate");
  EXPECT_EQ(Outcome(), "Not found");
}

TEST_F(Viewer, EscapeClosesTheFindBarThenTheWindow) {
  shown.Press(Qt::Key_F3);
  EXPECT_FALSE(line.parentWidget()->isHidden());
  shown.Press(Qt::Key_Escape);
  EXPECT_TRUE(line.parentWidget()->isHidden());
  EXPECT_EQ(shown.window->focusWidget(), &page);
  EXPECT_TRUE(shown.form->Loaded());
  shown.Press(Qt::Key_Escape);
  EXPECT_FALSE(shown.form->Loaded());
}

}  // namespace
}  // namespace quillmark
