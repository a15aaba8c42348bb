#include "qt/help/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <utility>

#include "qt/binding/window_registry.h"

namespace quillmark {

namespace {

bool IsBareF1(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

}  // namespace

HelpKey::HelpKey(std::function<void(const std::string& page)> act) : open(std::move(act)) {
  qApp->installEventFilter(this);
}

// A key comes to the window itself when no control in it has taken it.
bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (!IsBareF1(*event) || QApplication::activePopupWidget() != nullptr) return false;
  const auto* window = qobject_cast<QWidget*>(watched);
  if (window == nullptr || !window->isWindow()) return false;
  const WindowRow* row = RowAbove(*window);
  if (row != nullptr && row->Help.empty()) return false;
  open(row == nullptr ? std::string() : std::string(row->Help));
  return true;
}

}  // namespace quillmark
