#include "qt/widgets/terminal_view.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "qt/desktop/contrast.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

constexpr int batchTime = 50;         // ms
constexpr int batchTimeBehind = 250;  // ms, while the user has to do with another window
// The control keeps about 16000 characters, but a megabyte can come at once. Nobody reads that.
constexpr std::size_t mostShown = 24000;
// How much of a text's head must be found again in what is shown, to move the rest up.
constexpr std::size_t headToFind = 64;

// Where in `shown` the text begins that `next` begins with; npos when `next` is another text.
std::size_t StartOfKept(const std::string& shown, const std::string& next) {
  if (next.size() < headToFind) return std::string::npos;
  const std::string head = next.substr(0, headToFind);
  for (std::size_t at = shown.find(head); at != std::string::npos; at = shown.find(head, at + 1)) {
    if (next.starts_with(std::string_view(shown).substr(at))) return at;
  }
  return std::string::npos;
}

bool BetweenLineEnd(const std::string& text, std::size_t at) {
  return at > 0 && at < text.size() && text[at - 1] == '\r' && text[at] == '\n';
}

std::size_t CommonHead(const std::string& left, const std::string& right) {
  const std::size_t most = std::min(left.size(), right.size());
  const auto end = left.begin() + static_cast<std::ptrdiff_t>(most);
  auto same = static_cast<std::size_t>(std::mismatch(left.begin(), end, right.begin()).first -
                                       left.begin());
  // A carriage return at the end may get its line feed now.
  if (same > 0 && left[same - 1] == '\r') --same;
  return same;
}

QChar PictureOf(unsigned char byte) {
  if (byte < 32 && byte != '\t') return QChar(0x2400 + byte);
  if (byte == 127) return QChar(0x2421);
  if (byte >= 128 && byte < 160) return QChar(0x00B7);
  return QChar(byte);
}

// Keys with a character go to the radio, but for those with Alt, and for Ctrl and Shift together:
// no radio needs these, and the menus have some.
bool IsForRadio(const QKeyEvent& key) {
  const auto controlShift = Qt::ControlModifier | Qt::ShiftModifier;
  return !key.text().isEmpty() && (key.modifiers() & Qt::AltModifier) == 0 &&
         (key.modifiers() & controlShift) != controlShift;
}

}  // namespace

QString TerminalPicture(const std::string& text) {
  QString picture;
  picture.reserve(static_cast<qsizetype>(text.size()));
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\r' || text[at] == '\n') {
      if (BetweenLineEnd(text, at + 1)) ++at;
      picture += QLatin1Char('\n');
    } else {
      picture += PictureOf(static_cast<unsigned char>(text[at]));
    }
  }
  return picture;
}

TerminalView::TerminalView(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setTabChangesFocus(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setAttribute(Qt::WA_InputMethodEnabled);
  setWordWrapMode(QTextOption::WrapAnywhere);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  batch.setSingleShot(true);
  connect(&batch, &QTimer::timeout, this, &TerminalView::Flush);
}

QSize TerminalView::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.averageCharWidth() * 80, metrics.lineSpacing() * 12};
}

void TerminalView::SetStyle(const Style& next) {
  style = next;
  ShowStyle();
}

// A palette of its own lacks what the theme changes later, but for the other colours in it.
void TerminalView::ShowStyle() {
  const bool giveWay = !style.Chosen && IsDark(QApplication::palette());
  QPalette own;
  if (!giveWay) {
    own.setColor(QPalette::Text, style.Ink);
    own.setColor(QPalette::Base, style.Paper);
  }
  themed = giveWay;
  setPalette(own);
}

void TerminalView::changeEvent(QEvent* event) {
  const bool giveWay = !style.Chosen && IsDark(QApplication::palette());
  if (event->type() == QEvent::PaletteChange && giveWay != themed) ShowStyle();
  QPlainTextEdit::changeEvent(event);
}

void TerminalView::Follow(const std::string& text) {
  followed = text.size() > mostShown ? text.substr(text.size() - mostShown) : text;
  if (batch.isActive()) return;
  const QWidget* inFront = QApplication::activeModalWidget();
  const bool behind = inFront != nullptr && inFront != window();
  batch.start(behind ? batchTimeBehind : batchTime);
}

void TerminalView::Flush() {
  batch.stop();
  if (followed == shown) return;
  QScrollBar* bar = verticalScrollBar();
  const bool atEnd = AtEnd();
  const bool another = shown.empty() || followed.size() < shown.size();
  ShowChange(followed);
  if (atEnd || another) bar->setValue(bar->maximum());
}

bool TerminalView::AtEnd() const {
  return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

void TerminalView::ShowChange(const std::string& next) {
  std::size_t same = CommonHead(shown, next);
  if (same < shown.size() / 2) {
    const std::size_t cut = StartOfKept(shown, next);
    if (cut != std::string::npos && !BetweenLineEnd(shown, cut)) {
      Replace(0, cut, {});
      same = CommonHead(shown, next);
    }
  }
  Replace(same, shown.size(), next.substr(same));
}

// Replaces the bytes from `keep` up to `until` of what is shown.
void TerminalView::Replace(std::size_t keep, std::size_t until, const std::string& with) {
  const auto before = static_cast<int>(TerminalPicture(shown.substr(0, keep)).size());
  const auto gone = static_cast<int>(TerminalPicture(shown.substr(keep, until - keep)).size());
  QTextCursor cursor(document());
  cursor.beginEditBlock();
  cursor.setPosition(before);
  cursor.setPosition(before + gone, QTextCursor::KeepAnchor);
  cursor.insertText(TerminalPicture(with));
  cursor.endEditBlock();
  shown.replace(keep, until - keep, with);
}

bool TerminalView::event(QEvent* event) {
  // Keys that stand for characters belong to the radio, not to a shortcut.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (IsForRadio(*key)) {
      event->accept();
      return true;
    }
  }
  return QPlainTextEdit::event(event);
}

void TerminalView::keyPressEvent(QKeyEvent* event) {
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const auto controlShift = Qt::ControlModifier | Qt::ShiftModifier;
  if ((modifiers == controlShift && event->key() == Qt::Key_C) ||
      (modifiers == Qt::ControlModifier && event->key() == Qt::Key_Insert)) {
    copy();
  } else if ((modifiers == controlShift && event->key() == Qt::Key_V) ||
             (modifiers == Qt::ShiftModifier && event->key() == Qt::Key_Insert)) {
    Paste();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    emit Typed("\r");
  } else if (event->key() == Qt::Key_Backspace) {
    emit Typed("\b");
  } else if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab ||
             (modifiers & Qt::AltModifier) != 0 || event->text().isEmpty()) {
    QPlainTextEdit::keyPressEvent(event);
  } else if (!IsForRadio(*event)) {
    event->ignore();
  } else if (const std::string typed = FromQt(event->text()); !typed.empty()) {
    emit Typed(typed);
  }
}

void TerminalView::resizeEvent(QResizeEvent* event) {
  const bool atEnd = AtEnd();
  QPlainTextEdit::resizeEvent(event);
  if (atEnd) verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void TerminalView::inputMethodEvent(QInputMethodEvent* event) {
  const std::string typed = FromQt(event->commitString());
  if (!typed.empty()) emit Typed(typed);
  event->accept();
}

void TerminalView::Paste() {
  QString text = QGuiApplication::clipboard()->text();
  text.replace(QLatin1String("\r\n"), QLatin1String("\r"));
  text.replace(QLatin1Char('\n'), QLatin1Char('\r'));
  const std::string typed = FromQt(text);
  if (!typed.empty()) emit Typed(typed);
}

void TerminalView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  QAction* copyAction = menu.addAction(tr("&Copy"), QKeySequence(QStringLiteral("Ctrl+Shift+C")),
                                       this, &QPlainTextEdit::copy);
  copyAction->setEnabled(textCursor().hasSelection());
  menu.addAction(tr("&Paste to the radio"), QKeySequence(QStringLiteral("Ctrl+Shift+V")), this,
                 &TerminalView::Paste);
  menu.addSeparator();
  menu.addAction(tr("Select &all"), this, &QPlainTextEdit::selectAll);
  menu.exec(event->globalPos());
}

}  // namespace quillmark
