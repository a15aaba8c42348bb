#pragma once

#include <QTextCursor>
#include <QTextDocument>
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QShortcut;

namespace quillmark {

// A bar below a text that finds words in it without regard to case, going on at the other end when
// one is reached. Ctrl+F opens it, F3 and Enter find the next place, with Shift the one before;
// Escape closes it. It is hidden until it is opened.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  explicit FindBar(QWidget* parent = nullptr);

  // Sets the text to look through, a QPlainTextEdit or a QTextEdit, and a widget of the window
  // whose keys it listens to. Call it once.
  template <class Text>
  void Serve(Text& text, QWidget& window) {
    page = &text;
    cursorOf = [&text] { return text.textCursor(); };
    moveCursor = [&text](const QTextCursor& cursor) { text.setTextCursor(cursor); };
    Listen(window);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void Listen(QWidget& window);
  void Open();
  void Close();
  void Again(QTextDocument::FindFlags direction);
  // From where the text's selection begins, for each letter that is typed.
  void Typed();
  void Search(int from, QTextDocument::FindFlags direction);

  QLineEdit* line;
  QLabel* outcome;
  QWidget* page = nullptr;
  std::function<QTextCursor()> cursorOf;
  std::function<void(const QTextCursor&)> moveCursor;
  QShortcut* escape = nullptr;
};

}  // namespace quillmark
