#pragma once

#include <QColor>
#include <QPlainTextEdit>
#include <QTimer>
#include <string>

namespace quillmark {

// Shows the terminal's text and passes on what is typed. The view follows the text of the control
// in batches and shows its last part. Control characters other than line ends are shown as
// pictures, so nothing that a radio sends can do harm.
//
// Every key that stands for a character goes to the radio, Ctrl with a letter as the control
// character; Ctrl+Shift+C and Ctrl+Shift+V (or Ctrl and Shift with Insert) copy and paste, and Tab
// moves on to the next control.
class TerminalView : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit TerminalView(QWidget* parent = nullptr);

  // The control's whole text, single bytes; what differs is shown within 50 ms, or 250 ms
  // while a modal window is in front.
  void Follow(const std::string& text);
  // Shows it now.
  void Flush();

  // How it writes. Colours that nobody has chosen give way to the theme's where that is dark.
  struct Style {
    QColor Ink;
    QColor Paper;
    bool Chosen = true;
    bool operator==(const Style&) const = default;
  };
  void SetStyle(const Style& next);

  QSize sizeHint() const override;

 signals:
  // Characters as the radio is to get them: a carriage return for each line end.
  void Typed(const std::string& characters);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Paste();
  bool AtEnd() const;
  void ShowChange(const std::string& next);
  void Replace(std::size_t keep, std::size_t until, const std::string& with);

  void ShowStyle();

  QTimer batch;
  Style style;
  bool themed = true;    // it has the theme's colours
  std::string followed;  // the text to be shown
  std::string shown;     // what the document holds, as the control's bytes
};

// The picture of a text from the radio, line by line; and how many characters of the document
// `text` takes. Carriage return and line feed together are one line end, each alone is one too.
QString TerminalPicture(const std::string& text);

}  // namespace quillmark
