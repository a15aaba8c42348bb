#include "qt/widgets/terminal_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

namespace quillmark {
namespace {

TEST(TerminalView, ShowsWhatHarmsNobody) {
  const struct {
    std::string Text;
    QString Picture;
  } cases[] = {{">mode\r\nMODE R\r\n>", ">mode\nMODE R\n>"},
               {"a\rb\nc\n\rd", "a\nb\nc\n\nd"},
               {std::string("\0\x07\x1b\x7f", 4), u"\u2400\u2407\u241B\u2421"_qs},
               {"\x85\x9f\xe9\xff", u"\u00B7\u00B7\u00E9\u00FF"_qs},
               {"<b>&amp;\t", "<b>&amp;\t"}};
  for (const auto& c : cases) {
    TerminalView view;
    view.Follow(c.Text);
    view.Flush();
    EXPECT_EQ(TerminalPicture(c.Text), c.Picture);
    EXPECT_EQ(view.toPlainText(), c.Picture);
  }
}

// Whatever a text changes to, the view shows it as if it had always been that.
TEST(TerminalView, FollowsEveryChange) {
  std::string lines;
  for (int i = 0; i < 900; ++i) lines += "row " + std::to_string(i * 7919 % 1000) + "\r\n";
  const std::string flood(30'000, '>');
  const std::string steps[] = {lines.substr(0, 5000),
                               lines.substr(0, 5001),
                               lines.substr(4096, 3000),
                               lines.substr(4097),
                               "",
                               "Connecting",
                               "Connecting...",
                               "Connect",
                               "Connect\r",
                               "Connect\r\nok",
                               "Connect\r\n",
                               "Connect\r",
                               flood,
                               flood + "\r\n>",
                               lines.substr(2, 300),
                               lines.substr(100, 300)};
  TerminalView view;
  for (const std::string& step : steps) {
    view.Follow(step);
    view.Flush();
    const std::string shown = step.size() > 24'000 ? step.substr(step.size() - 24'000) : step;
    ASSERT_EQ(view.toPlainText(), TerminalPicture(shown)) << "at " << step.substr(0, 40);
  }
}

TEST(TerminalView, KeysGoToTheRadio) {
  TerminalView view;
  std::string typed;
  QObject::connect(&view, &TerminalView::Typed,
                   [&](const std::string& characters) { typed += characters + "|"; });
  QApplication::clipboard()->setText("one\r\ntwo\nthree\u20AC");
  const struct {
    int Key;
    Qt::KeyboardModifiers Modifiers;
    const char* Text;
  } keys[] = {{Qt::Key_A, Qt::NoModifier, "a"},
              {Qt::Key_Return, Qt::NoModifier, "\r"},
              {Qt::Key_Enter, Qt::KeypadModifier, "\r"},
              {Qt::Key_Backspace, Qt::NoModifier, "\b"},
              {Qt::Key_Escape, Qt::NoModifier, "\x1b"},
              {Qt::Key_C, Qt::ControlModifier, "\x03"},
              {Qt::Key_Tab, Qt::NoModifier, "\t"},
              {Qt::Key_F5, Qt::NoModifier, ""},
              {Qt::Key_F, Qt::AltModifier, "f"},
              {Qt::Key_Up, Qt::NoModifier, ""},
              {Qt::Key_Q, Qt::ControlModifier | Qt::ShiftModifier, "\x11"},
              {Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier, "\x16"}};
  std::string taken;  // from the menus
  for (const auto& key : keys) {
    QKeyEvent first(QEvent::ShortcutOverride, key.Key, key.Modifiers,
                    QString::fromLatin1(key.Text));
    first.ignore();
    QCoreApplication::sendEvent(&view, &first);
    taken += first.isAccepted() ? "x" : ".";
    QKeyEvent press(QEvent::KeyPress, key.Key, key.Modifiers, QString::fromLatin1(key.Text));
    QCoreApplication::sendEvent(&view, &press);
  }
  EXPECT_EQ(typed, "a|\r|\r|\b|\x1b|\x03|one\rtwo\rthree|");
  EXPECT_EQ(view.toPlainText(), "");
  EXPECT_EQ(taken, "xxxxxxx.....");
}

}  // namespace
}  // namespace quillmark
