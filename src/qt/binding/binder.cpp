#include "qt/binding/binder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <stdexcept>

#include "qt/binding/locks.h"
#include "qt/text/latin1.h"
#include "qt/widgets/clickable_text.h"
#include "qt/widgets/color_block.h"
#include "qt/widgets/notice_line.h"
#include "qt/widgets/painted_controls.h"
#include "qt/widgets/row_stack.h"
#include "qt/widgets/table_view.h"
#include "qt/widgets/terminal_view.h"

namespace quillmark {

namespace {

// Widgets that a user acts on: each needs its control.
bool TakesActs(const QObject* object) {
  return qobject_cast<const QAction*>(object) != nullptr ||
         qobject_cast<const QAbstractButton*>(object) != nullptr ||
         qobject_cast<const QComboBox*>(object) != nullptr ||
         qobject_cast<const QLineEdit*>(object) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(object) != nullptr ||
         qobject_cast<const QSlider*>(object) != nullptr ||
         qobject_cast<const QTabBar*>(object) != nullptr ||
         qobject_cast<const TableView*>(object) != nullptr ||
         qobject_cast<const ClickableText*>(object) != nullptr;
}

}  // namespace

Binder::Binder(Form& boundForm, QWidget& boundWindow, Acts& windowActs, bool windowPaints)
    : form(boundForm), window(boundWindow), acts(windowActs), paints(windowPaints) {}

Binder::~Binder() {
  for (const auto& [control, widget] : widgets) const_cast<Control*>(control)->SetView(nullptr);
}

template <class Kind, class Widget, void (Binder::*join)(Kind&, Widget&)>
bool Binder::TryJoin(Control& control) {
  auto* kind = dynamic_cast<Kind*>(&control);
  if (kind == nullptr) return false;
  auto* object = window.findChild<QObject*>(ToQt(control.Name()));
  auto* widget = qobject_cast<Widget*>(object);
  if (object == nullptr) {
    problems.push_back(control.Name() + " has no widget");
  } else if (widget == nullptr) {
    problems.push_back(control.Name() + " has a widget of the wrong kind, " +
                       object->metaObject()->className());
  } else {
    widgets[&control] = object;
    (this->*join)(*kind, *widget);
    control.SetView(this);
  }
  return true;
}

// What a painted widget draws has no widget of its own.
void Binder::JoinPainted() {
  bool found = false;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    auto* painted = dynamic_cast<PaintedControls*>(widget);
    if (painted == nullptr) continue;
    found = true;
    JoinDrawn(*painted, *widget);
  }
  if (!found) problems.emplace_back("no widget paints controls");
}

void Binder::JoinDrawn(PaintedControls& painted, QWidget& widget) {
  const std::size_t problemsBefore = problems.size();
  for (const std::string& name : painted.Drawn()) {
    Control* control = form.Find(name);
    if (control == nullptr) {
      problems.push_back(name + " is drawn, but has no control");
      continue;
    }
    widgets[control] = &widget;
    shows[control] = [&painted, control] { painted.ControlChanged(*control); };
    control->SetView(this);
  }
  if (problems.size() == problemsBefore) painted.Join(form);
}

bool Binder::Ignore(Control& control) { return dynamic_cast<Timer*>(&control) != nullptr; }

void Binder::Join() {
  using Joiner = bool (Binder::*)(Control&);
  static constexpr Joiner joiners[] = {
      &Binder::TryJoin<ValueField, ValueBox, &Binder::JoinValueField>,
      &Binder::TryJoin<Label, CaptionLabel, &Binder::JoinLabel>,
      &Binder::TryJoin<Button, QPushButton, &Binder::JoinButton>,
      &Binder::TryJoin<Notice, NoticeLine, &Binder::JoinNotice>,
      &Binder::TryJoin<Lamp, QToolButton, &Binder::JoinLamp>,
      &Binder::TryJoin<ToolButton, QAction, &Binder::JoinToolButton>,
      &Binder::TryJoin<MenuItem, QAction, &Binder::JoinMenuItem>,
      &Binder::TryJoin<Menu, QMenu, &Binder::JoinMenu>,
      &Binder::TryJoin<CheckBox, QCheckBox, &Binder::JoinCheckBox>,
      &Binder::TryJoin<OptionButton, QRadioButton, &Binder::JoinOption>,
      &Binder::TryJoin<Frame, QWidget, &Binder::JoinFrame>,
      &Binder::TryJoin<StatusPanel, QLabel, &Binder::JoinPanel>,
      &Binder::TryJoin<TextBox, QWidget, &Binder::JoinTextBox>,
      &Binder::TryJoin<ListBox, QComboBox, &Binder::JoinList>,
      &Binder::TryJoin<Table, TableView, &Binder::JoinTable>,
      &Binder::TryJoin<Slider, QSlider, &Binder::JoinSlider>,
      &Binder::TryJoin<ProgressBar, QProgressBar, &Binder::JoinProgress>,
      &Binder::TryJoin<TabStrip, QTabBar, &Binder::JoinTabs>,
      &Binder::TryJoin<Shape, ColorBlock, &Binder::JoinShape>,
      &Binder::Ignore,
  };
  if (paints) JoinPainted();
  for (Control* control : form.Controls()) {
    if (widgets.count(control) != 0) continue;
    if (const auto tip = LockTip(*control)) lockTips[control] = *tip;
    bool joined = false;
    for (const Joiner joiner : joiners) joined = joined || (this->*joiner)(*control);
    if (!joined) problems.push_back(control->Name() + " is of a kind that no widget shows");
  }
  FindStrayWidgets();
  for (const std::string& problem : LockProblems(form)) problems.push_back(problem);
  if (!problems.empty()) {
    std::string all = "The window " + form.Name() + " does not fit its controls:";
    for (const std::string& problem : problems) all += "\n  " + problem;
    throw std::logic_error(all);
  }
  NameValues();
  GatherRows();
}

void Binder::FindStrayWidgets() {
  for (const QObject* object : window.findChildren<QObject*>()) {
    const QString name = object->objectName();
    if (!TakesActs(object) || name.isEmpty() || name.startsWith(QLatin1String("qt_"))) continue;
    // The parts of a widget are that widget's business.
    if (object->parent() != nullptr && TakesActs(object->parent())) continue;
    if (form.Find(FromQt(name)) == nullptr) problems.push_back(FromQt(name) + " has no control");
  }
}

void Binder::Follow(Control& control, std::function<void()> show) {
  show();
  shows[&control] = std::move(show);
}

void Binder::Changed(Control& control) {
  const auto show = shows.find(&control);
  if (show != shows.end()) show->second();
  const auto rows = rowStacks.find(control.Container());
  if (rows != rowStacks.end()) rows->second->LayOutSoon();
}

void Binder::ActOn(Control& control, const std::function<void()>& act) {
  acts.Act(act);
  Changed(control);
}

void Binder::MoveFocus(const Control& control) {
  const auto found = widgets.find(&control);
  if (found == widgets.end()) return;
  auto* widget = qobject_cast<QWidget*>(found->second);
  if (widget == nullptr) return;
  // As if the user had come by the tab key: what stands in a line is selected, to be typed over.
  widget->setFocus(Qt::TabFocusReason);
  const auto* box = dynamic_cast<const TextBox*>(&control);
  auto* line = qobject_cast<QLineEdit*>(widget);
  if (box == nullptr || line == nullptr || box->SelLength() == 0) return;
  line->setSelection(static_cast<int>(box->SelStart()), static_cast<int>(box->SelLength()));
}

void Binder::PopUp(const Menu& menu, const Control& beside) {
  const auto foundMenu = widgets.find(&menu);
  const auto foundPlace = widgets.find(&beside);
  if (foundMenu == widgets.end() || foundPlace == widgets.end()) return;
  auto* shown = qobject_cast<QMenu*>(foundMenu->second);
  auto* place = qobject_cast<QWidget*>(foundPlace->second);
  if (shown == nullptr || place == nullptr) return;
  const QPoint mouse = QCursor::pos();
  const bool over = place->rect().contains(place->mapFromGlobal(mouse));
  shown->popup(over ? mouse : place->mapToGlobal(place->rect().bottomLeft()));
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusOut) return false;
  const auto reason = static_cast<QFocusEvent*>(event)->reason();
  // Another window, or a menu, leaves the field only for a while.
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
      reason == Qt::MenuBarFocusReason) {
    return false;
  }
  if (auto* box = dynamic_cast<TextBox*>(form.Find(FromQt(watched->objectName())))) {
    acts.ActAfterwards([box] { box->UserLeave(); });
  }
  return false;
}

// A label explains the value that it is the buddy of.
void Binder::NameValues() {
  for (CaptionLabel* label : window.findChildren<CaptionLabel*>()) {
    if (auto* box = qobject_cast<ValueBox*>(label->buddy())) box->SetCaption(label);
  }
}

// A frame with a grid lays its rows out by their Top: each value and the label made right after it.
void Binder::GatherRows() {
  const auto& controls = form.Controls();
  for (std::size_t i = 0; i + 1 < controls.size(); ++i) {
    const Control* value = controls[i];
    const Control* label = controls[i + 1];
    if (dynamic_cast<const ValueField*>(value) == nullptr ||
        dynamic_cast<const Label*>(label) == nullptr || widgets.count(value->Container()) == 0) {
      continue;
    }
    RowStack*& rows = rowStacks[value->Container()];
    if (rows == nullptr) {
      rows = new RowStack(*static_cast<QWidget*>(widgets[value->Container()]));
    }
    rows->Add(
        {value, static_cast<QWidget*>(widgets[value]), static_cast<QWidget*>(widgets[label])});
  }
  for (const auto& [frame, rows] : rowStacks) rows->LayOut();
}

// Of frames that lie over each other the visible one with the greatest depth is seen.
void Binder::PickFrontFrame(QWidget& stacked) {
  auto* stack = qobject_cast<QStackedWidget*>(stacked.parentWidget());
  const Control* front = nullptr;
  for (int i = 0; i < stack->count(); ++i) {
    const Control* frame = form.Find(FromQt(stack->widget(i)->objectName()));
    if (frame == nullptr || !frame->Visible()) continue;
    if (front == nullptr || frame->Depth() > front->Depth()) front = frame;
  }
  if (front == nullptr) return;
  stack->setCurrentWidget(stack->findChild<QWidget*>(ToQt(front->Name())));
}

}  // namespace quillmark
