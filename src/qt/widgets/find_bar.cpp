#include "qt/widgets/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>

namespace quillmark {

namespace {

constexpr int lineWidth = 24;  // average characters
constexpr QTextDocument::FindFlags forward{};
constexpr QTextDocument::FindFlags backward = QTextDocument::FindBackward;

QToolButton* MakeButton(const QString& text, const QString& tip, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setText(text);
  button->setToolTip(tip);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent), line(new QLineEdit(this)), outcome(new QLabel(this)) {
  auto* caption = new QLabel(tr("Find:"), this);
  caption->setBuddy(line);
  auto* next = MakeButton(tr("Next"), tr("Finds the next place (F3)"), this);
  auto* previous = MakeButton(tr("Previous"), tr("Finds the place before (Shift+F3)"), this);
  line->setAccessibleName(tr("Find"));
  line->setClearButtonEnabled(true);
  line->setMinimumWidth(fontMetrics().averageCharWidth() * lineWidth);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  for (QWidget* widget : std::initializer_list<QWidget*>{caption, line, next, previous}) {
    row->addWidget(widget);
  }
  row->addWidget(outcome, 1);
  connect(line, &QLineEdit::textEdited, this, &FindBar::Typed);
  connect(next, &QToolButton::clicked, this, [this] { Again(forward); });
  connect(previous, &QToolButton::clicked, this, [this] { Again(backward); });
  hide();
}

void FindBar::Listen(QWidget& window) {
  const auto on = [this, &window](const QKeySequence& keys, auto act) {
    auto* shortcut = new QShortcut(keys, &window);
    connect(shortcut, &QShortcut::activated, this, act);
    return shortcut;
  };
  on(Qt::CTRL | Qt::Key_F, [this] { Open(); });
  on(Qt::Key_F3, [this] { Again(forward); });
  on(Qt::SHIFT | Qt::Key_F3, [this] { Again(backward); });
  // While the bar is there the key is its own, wherever the focus is; then it is the window's.
  escape = on(Qt::Key_Escape, [this] { Close(); });
  escape->setEnabled(false);
}

void FindBar::showEvent(QShowEvent* event) {
  if (escape != nullptr) escape->setEnabled(true);
  QWidget::showEvent(event);
}

void FindBar::hideEvent(QHideEvent* event) {
  if (escape != nullptr && isHidden()) escape->setEnabled(false);
  QWidget::hideEvent(event);
}

// Enter in the line must not reach the window, which would click its default button.
void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    return QWidget::keyPressEvent(event);
  }
  Again((event->modifiers() & Qt::ShiftModifier) != 0 ? backward : forward);
}

void FindBar::Open() {
  show();
  const QString selected = cursorOf().selectedText();
  // A selection over several lines is no word to look for.
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) {
    line->setText(selected);
  }
  line->setFocus(Qt::ShortcutFocusReason);
  line->selectAll();
}

void FindBar::Close() {
  hide();
  outcome->clear();
  page->setFocus();
}

void FindBar::Again(QTextDocument::FindFlags direction) {
  if (isHidden() || line->text().isEmpty()) return Open();
  const QTextCursor cursor = cursorOf();
  Search(direction == backward ? cursor.selectionStart() : cursor.selectionEnd(), direction);
}

void FindBar::Typed() {
  outcome->clear();
  if (!line->text().isEmpty()) Search(cursorOf().selectionStart(), forward);
}

void FindBar::Search(int from, QTextDocument::FindFlags direction) {
  const QTextDocument& document = *cursorOf().document();
  QTextCursor found = document.find(line->text(), from, direction);
  outcome->clear();
  if (found.isNull()) {
    const bool back = direction == backward;
    const int otherEnd = back ? document.characterCount() - 1 : 0;
    found = document.find(line->text(), otherEnd, direction);
    outcome->setText(found.isNull() ? tr("Not found")
                     : back         ? tr("Went on from the end")
                                    : tr("Went on from the beginning"));
  }
  if (!found.isNull()) moveCursor(found);
}

}  // namespace quillmark
