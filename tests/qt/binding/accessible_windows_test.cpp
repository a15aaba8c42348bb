// What a screen reader finds in each window: every control has a name, hangs on its window, and can
// be pressed where it says that it is a button.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>
#include <memory>
#include <set>
#include <string>

#include "qt/binding/binder.h"
#include "qt/binding/window_registry.h"
#include "qt/widgets/accessible_widgets.h"
#include "qt/widgets/clickable_text.h"
#include "qt/window_forms.h"

namespace quillmark {
namespace {

using Role = QAccessible::Role;

// Roles that mean nothing without a name.
const std::set<Role> named{
    Role::Button,        Role::CheckBox, Role::RadioButton, Role::ComboBox,    Role::EditableText,
    Role::Slider,        Role::SpinBox,  Role::ProgressBar, Role::Chart,       Role::Grouping,
    Role::PageTab,       Role::MenuItem, Role::List,        Role::PageTabList, Role::ButtonMenu,
    Role::PopupMenu,     Role::Link,     Role::Table,       Role::Tree,        Role::Dial,
    Role::ButtonDropDown};
// Roles that promise an action.
const std::set<Role> pressed{Role::Button,   Role::CheckBox, Role::RadioButton, Role::PageTab,
                             Role::MenuItem, Role::Link,     Role::ButtonMenu};

struct DoneActs : Acts {
  void Act(const std::function<void()>& act) override { act(); }
  void ActAfterwards(const std::function<void()>& act) override { act(); }
};

class AccessibleTree {
 public:
  // The faults below a window, one a line.
  static std::string FaultsOf(QWidget& window) {
    AccessibleTree tree;
    tree.top = QAccessible::queryAccessibleInterface(&window);
    tree.Walk(*tree.top);
    return tree.faults;
  }

 private:
  void Walk(QAccessibleInterface& from) {
    for (int i = 0; i < from.childCount(); ++i) {
      QAccessibleInterface* child = from.child(i);
      if (child == nullptr || !child->isValid()) {
        Blame(from, "has a child that is none");
        continue;
      }
      Check(*child);
      // The parts of a control are the toolkit's.
      if (child->role() != Role::ComboBox && child->role() != Role::Table) Walk(*child);
    }
  }

  void Check(QAccessibleInterface& item) {
    const QAccessible::State state = item.state();
    if (!HangsOnWindow(item)) Blame(item, "does not lead up to its window");
    const bool takesKeys = state.focusable && item.role() != Role::StaticText;
    const bool empty = item.text(QAccessible::Name).trimmed().isEmpty();
    if (empty && (named.contains(item.role()) || takesKeys)) Blame(item, "has no name");
    if (state.focusable && (item.role() == Role::Client || item.role() == Role::Pane)) {
      Blame(item, "takes the focus and says not what it is");
    }
    const auto* actions = item.actionInterface();
    const bool can = actions != nullptr && !actions->actionNames().isEmpty();
    if (pressed.contains(item.role()) && !state.disabled && !can && !state.readOnly) {
      Blame(item, "cannot be pressed");
    }
  }

  bool HangsOnWindow(QAccessibleInterface& item) const {
    QAccessibleInterface* at = &item;
    for (int steps = 0; at != nullptr && steps < 30; ++steps) {
      if (at->object() != nullptr && at->object() == top->object()) return true;
      at = at->parent();
    }
    return false;
  }

  void Blame(QAccessibleInterface& item, const char* what) {
    const QObject* object = item.object();
    faults += (object == nullptr ? "?" : object->objectName().toStdString()) + " (" +
              (object == nullptr ? "part" : object->metaObject()->className()) + ", role " +
              std::to_string(item.role()) + ") " + what + "\n";
  }

  QAccessibleInterface* top = nullptr;
  std::string faults;
};

TEST(AccessibleWindows, EachControlHasANameAPlaceAndAPress) {
  MakeOurWidgetsAccessible();
  IdleProgram program;
  for (const WindowRow& row : AllWindows()) {
    const auto form = program.Forms.Make(std::string(row.Name));
    const std::unique_ptr<QWidget> window(MakeWindow(row, nullptr));
    DoneActs acts;
    Binder binder(*form, *window, acts, row.Paints);
    binder.Join();
    window->show();
    EXPECT_EQ(AccessibleTree::FaultsOf(*window), "") << row.Name;
  }
}

TEST(AccessibleWindows, APressClicksAndAValueIsRead) {
  MakeOurWidgetsAccessible();
  ValueBox box;
  box.setAccessibleName(QStringLiteral("Power"));
  box.setText(QStringLiteral("PWR 30 dBm"));
  int clicks = 0;
  QObject::connect(&box, &ClickableText::Clicked, [&] { ++clicks; });
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&box);
  EXPECT_EQ(spoken->role(), Role::StaticText);
  spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clicks, 0);
  box.SetClickable(true);
  EXPECT_EQ(spoken->role(), Role::Button);
  EXPECT_EQ(spoken->text(QAccessible::Name), "Power");
  EXPECT_EQ(spoken->text(QAccessible::Value), "PWR 30 dBm");
  spoken->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace quillmark
