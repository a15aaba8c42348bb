#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/option_button.h"
#include "controls/shape.h"
#include "controls/table.h"
#include "controls/text_box.h"
#include "controls/timer.h"

class QAbstractButton;
class QAction;
class QPlainTextEdit;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QSlider;
class QTabBar;
class QToolButton;

namespace quillmark {

class CaptionLabel;
class ColorBlock;
class HelpView;
class NoticeLine;
class PaintedControls;
class RowStack;
class TableView;
class TerminalView;
class ValueBox;

// Where the acts of a window's user go. It decides whether the window takes any now, and calls the
// logic.
class Acts {
 public:
  virtual void Act(const std::function<void()>& act) = 0;
  // The same after the act that is under way or about to come, such as a click that takes the
  // focus.
  virtual void ActAfterwards(const std::function<void()>& act) = 0;

 protected:
  ~Acts() = default;
};

// Joins the controls of a form to the widgets of its window by their names. The program sets a
// control, and the widget follows. The user acts on the widget, the control is told, and the widget
// then reads the control again.
class Binder : public QObject, public ControlView {
 public:
  // `paints`: some of the widgets are PaintedControls.
  Binder(Form& form, QWidget& window, Acts& acts, bool paints = false);
  ~Binder() override;

  // Throws std::logic_error that names all problems: a control without its widget, a widget of the
  // wrong kind, a widget for clicking or typing without its control, a lock that does not fit.
  void Join();

  void Changed(Control& control) override;
  void MoveFocus(const Control& control);
  // Shows a menu where the mouse is, if that is over the control, else below the control.
  void PopUp(const Menu& menu, const Control& beside);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  template <class Kind, class Widget, void (Binder::*join)(Kind&, Widget&)>
  bool TryJoin(Control& control);
  bool Ignore(Control& control);
  void JoinPainted();
  void JoinDrawn(PaintedControls& painted, QWidget& widget);

  void JoinMenuItem(MenuItem& control, QAction& action);
  void JoinMenu(Menu& control, QMenu& menu);
  void JoinToolButton(ToolButton& control, QAction& action);
  void JoinLamp(Lamp& control, QToolButton& button);
  void JoinButton(Button& control, QPushButton& button);
  void JoinRightClick(Button& control, QPushButton& button);
  void JoinCheckBox(CheckBox& control, QCheckBox& box);
  void JoinOption(OptionButton& control, QRadioButton& button);
  void JoinValueField(ValueField& control, ValueBox& box);
  void JoinLabel(Label& control, CaptionLabel& label);
  void JoinNotice(Notice& control, NoticeLine& line);
  void JoinPanel(StatusPanel& control, QLabel& label);
  void JoinFrame(Frame& control, QWidget& widget);
  void JoinTextBox(TextBox& control, QWidget& widget);
  void JoinLine(TextBox& control, QLineEdit& line);
  void JoinTerminal(TextBox& control, TerminalView& terminal);
  void JoinReading(TextBox& control, QPlainTextEdit& page);
  void JoinManual(TextBox& control, HelpView& manual);
  void JoinList(ListBox& control, QComboBox& box);
  void JoinTyping(ListBox& control, QLineEdit* line);
  void JoinTable(Table& control, TableView& view);
  void JoinSlider(Slider& control, QSlider& slider);
  void JoinProgress(ProgressBar& control, QProgressBar& bar);
  void JoinTabs(TabStrip& control, QTabBar& bar);
  void JoinShape(Shape& control, ColorBlock& block);

  // Remembers how a control is shown, and shows it once.
  void Follow(Control& control, std::function<void()> show);
  // Carries out an act, then shows the control as it is now.
  void ActOn(Control& control, const std::function<void()>& act);
  void ShowCommon(const Control& control, QWidget& widget, bool lockable = true);
  void ShowAction(const Clickable& control, QAction& action);
  void JoinClick(Clickable& control, QAbstractButton& button);
  bool Locked(const Control& control) const { return lockTips.count(&control) != 0; }
  QString TipOf(const Control& control) const;

  void ShowOptions(QButtonGroup& group);
  void NameValues();
  void GatherRows();
  void PickFrontFrame(QWidget& stacked);
  void FindStrayWidgets();

  Form& form;
  QWidget& window;
  Acts& acts;
  bool paints;
  std::map<const Control*, std::function<void()>> shows;
  std::map<const Control*, QObject*> widgets;
  std::map<const Control*, std::string> lockTips;
  std::map<const Control*, RowStack*> rowStacks;  // by frame
  std::vector<std::string> problems;
};

}  // namespace quillmark
