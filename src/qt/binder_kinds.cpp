// How each kind of control is joined to its widget.

#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "qt/binder.h"
#include "qt/clickable_text.h"
#include "qt/latin1.h"
#include "qt/terminal_view.h"

namespace quillmark {

namespace {

// The point size that the logic's font sizes are measured against.
constexpr double usualFontSize = 8;
constexpr std::uint32_t linkColor = 0xFF0000;

QColor ToColor(std::uint32_t blueGreenRed) {
  return QColor(static_cast<int>(blueGreenRed & 0xFF), static_cast<int>(blueGreenRed >> 8 & 0xFF),
                static_cast<int>(blueGreenRed >> 16 & 0xFF));
}

void ShowFont(const Clickable& control, QWidget& widget) {
  if (control.FontSize() <= 0) return;
  QFont font = widget.parentWidget()->font();
  font.setPointSizeF(font.pointSizeF() * control.FontSize() / usualFontSize);
  widget.setFont(font);
}

// The blue of an address gives way to the theme's own colour of links.
void ShowColor(const Clickable& control, QWidget& widget) {
  if (control.ForeColor() == 0) return;
  QPalette palette = widget.palette();
  palette.setColor(QPalette::WindowText, control.ForeColor() == linkColor
                                             ? palette.color(QPalette::Link)
                                             : ToColor(control.ForeColor()));
  widget.setPalette(palette);
}

// A square of a colour, in a frame so that it shows on a ground of the same colour.
QIcon Swatch(std::uint32_t blueGreenRed, const QWidget& where) {
  const int side = where.fontMetrics().height();
  const qreal scale = where.devicePixelRatioF();
  QPixmap picture(QSize(side, side) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QColor edge = where.palette().color(QPalette::Text);
  edge.setAlphaF(0.5F);
  painter.setPen(edge);
  painter.setBrush(ToColor(blueGreenRed));
  painter.drawRect(QRectF(0.5, 0.5, side - 1, side - 1));
  return QIcon(picture);
}

void ShowSwatches(const ListBox& control, QComboBox& box) {
  const auto& colours = control.ItemColours();
  if (colours.empty()) return;
  const int side = box.fontMetrics().height();
  box.setIconSize({side, side});
  for (std::size_t i = 0; i < colours.size() && i < control.Items().size(); ++i) {
    box.setItemIcon(static_cast<int>(i), Swatch(colours[i], box));
  }
}

void ShowItems(const ListBox& control, QComboBox& box) {
  const auto& items = control.Items();
  bool same = box.count() == static_cast<int>(items.size());
  for (int i = 0; same && i < box.count(); ++i) {
    same = box.itemText(i) == ToQt(items[static_cast<std::size_t>(i)]);
  }
  if (!same) {
    box.clear();
    for (const std::string& item : items) box.addItem(ToQt(item));
    ShowSwatches(control, box);
  }
  const auto& tips = control.ItemTips();
  for (std::size_t i = 0; i < tips.size() && i < items.size(); ++i) {
    box.setItemData(static_cast<int>(i), PlainTip(tips[i]), Qt::ToolTipRole);
  }
}

void ShowSecrecy(const TextBox& control, QLineEdit& line) {
  const auto mode = control.Secret() ? QLineEdit::Password : QLineEdit::Normal;
  if (line.echoMode() == mode) return;
  line.setEchoMode(mode);
  // Style sheets are Qt's only way to choose the character that stands for a secret one: "*".
  line.setStyleSheet(control.Secret() ? QStringLiteral("lineedit-password-character: 42")
                                      : QString());
}

}  // namespace

QString Binder::TipOf(const Control& control) const {
  const auto lock = lockTips.find(&control);
  return PlainTip(lock == lockTips.end() ? control.ToolTip() : lock->second);
}

void Binder::ShowCommon(const Control& control, QWidget& widget, bool lockable) {
  widget.setEnabled(control.Enabled() && !(lockable && Locked(control)));
  widget.setVisible(control.Visible());
  widget.setToolTip(TipOf(control));
}

void Binder::ShowAction(const Clickable& control, QAction& action) {
  action.setEnabled(control.Enabled() && !Locked(control));
  action.setVisible(control.Visible());
  action.setToolTip(TipOf(control));
}

void Binder::JoinMenuItem(MenuItem& control, QAction& action) {
  connect(&action, &QAction::triggered, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  Follow(control, [this, &control, &action] {
    ShowAction(control, action);
    action.setText(ToQt(control.Text()));
    if (action.isCheckable()) action.setChecked(control.Checked());
  });
}

void Binder::JoinMenu(Menu& control, QMenu& menu) {
  menu.setToolTipsVisible(true);
  Follow(control, [this, &control, &menu] {
    ShowAction(control, *menu.menuAction());
    menu.setTitle(ToQt(control.Text()));
  });
}

void Binder::JoinToolButton(ToolButton& control, QAction& action) {
  connect(&action, &QAction::triggered, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  Follow(control, [this, &control, &action] {
    ShowAction(control, action);
    action.setText(WithoutMnemonics(control.Text()));
    action.setIconText(OnTwoLines(WithoutMnemonics(control.Text())));
  });
}

void Binder::JoinClick(Clickable& control, QAbstractButton& button) {
  connect(&button, &QAbstractButton::clicked, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
}

void Binder::JoinLamp(Lamp& control, QToolButton& button) {
  JoinClick(control, button);
  Follow(control, [this, &control, &button] { ShowCommon(control, button); });
}

void Binder::JoinButton(Button& control, QPushButton& button) {
  JoinClick(control, button);
  Follow(control, [this, &control, &button] {
    ShowCommon(control, button);
    ShowFont(control, button);
    const QString caption = ToQt(control.Text());
    if (button.text() != caption) button.setText(caption);
  });
}

void Binder::JoinCheckBox(CheckBox& control, QCheckBox& box) {
  JoinClick(control, box);
  Follow(control, [this, &control, &box] {
    ShowCommon(control, box);
    const QString caption = ToQt(control.Text());
    if (box.text() != caption) box.setText(caption);
    box.setChecked(control.Checked());
  });
}

// The buttons that exclude each other are a group, so that the arrow keys move between them. The
// controls have the last word: a click that did not reach its control is taken back from all.
void Binder::JoinOption(OptionButton& control, QRadioButton& button) {
  const QString name = ToQt(control.Name()).section(QLatin1Char('_'), 0, -2);
  auto* group = window.findChild<QButtonGroup*>(name);
  if (group == nullptr) {
    group = new QButtonGroup(&window);
    group->setObjectName(name);
  }
  group->addButton(&button);
  JoinClick(control, button);
  Follow(control, [this, &control, &button, group] {
    ShowCommon(control, button);
    const QString caption = ToQt(control.Text());
    if (button.text() != caption) button.setText(caption);
    ShowOptions(*group);
  });
}

void Binder::ShowOptions(QButtonGroup& group) {
  // A group that excludes keeps its last choice.
  group.setExclusive(false);
  for (QAbstractButton* button : group.buttons()) {
    auto* option = dynamic_cast<OptionButton*>(form.Find(FromQt(button->objectName())));
    if (option != nullptr) button->setChecked(option->Checked());
  }
  group.setExclusive(true);
  const auto buttons = group.buttons();
  const bool anyChosen = std::any_of(buttons.begin(), buttons.end(),
                                     [](QAbstractButton* button) { return button->isChecked(); });
  // The tab key leads to the one that is chosen.
  for (QAbstractButton* button : buttons) {
    button->setFocusPolicy(button->isChecked() || !anyChosen ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

void Binder::JoinValueField(ValueField& control, ValueBox& box) {
  connect(&box, &ClickableText::Clicked, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  Follow(control, [this, &control, &box] {
    ShowCommon(control, box, false);
    box.setText(ToQt(OnOneLine(control.Text())));
    box.setAccessibleDescription(box.text());
    const bool promised = control.MousePointer() != Pointer::NoDrop;
    box.SetClickable(control.OnClick && promised && !Locked(control));
  });
}

void Binder::JoinLabel(Label& control, CaptionLabel& label) {
  connect(&label, &ClickableText::Clicked, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  Follow(control, [this, &control, &label] {
    ShowCommon(control, label, false);
    ShowFont(control, label);
    ShowColor(control, label);
    label.setText(InLines(control.Text()));
    // A label that nothing happens at promises nothing.
    if (!control.OnClick) label.setToolTip({});
    label.SetClickable(control.OnClick && !Locked(control));
  });
}

void Binder::JoinPanel(StatusPanel& control, QLabel& label) {
  Follow(control, [this, &control, &label] {
    ShowCommon(control, label);
    label.setText(ToQt(control.Text()));
  });
}

void Binder::JoinFrame(Frame& control, QWidget& widget) {
  Follow(control, [this, &control, &widget] {
    if (auto* box = qobject_cast<QGroupBox*>(&widget)) {
      box->setTitle(WithoutMnemonics(control.Text()));
    }
    if (qobject_cast<QStackedWidget*>(widget.parentWidget()) == nullptr) {
      ShowCommon(control, widget);
    } else {
      widget.setEnabled(control.Enabled());
      PickFrontFrame(widget);
    }
  });
}

void Binder::JoinTextBox(TextBox& control, QWidget& widget) {
  if (auto* terminal = qobject_cast<TerminalView*>(&widget)) {
    JoinTerminal(control, *terminal);
  } else if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    JoinLine(control, *line);
  } else {
    problems.push_back(control.Name() + " has a widget that takes no text");
  }
}

void Binder::JoinLine(TextBox& control, QLineEdit& line) {
  line.installEventFilter(this);
  connect(&line, &QLineEdit::textEdited, this, [this, &control](const QString& text) {
    ActOn(control, [&control, typed = FromQt(text)] { control.UserEdit(typed); });
  });
  Follow(control, [this, &control, &line] {
    ShowCommon(control, line);
    ShowSecrecy(control, line);
    line.setMaxLength(control.MaxLength() == 0 ? 32767 : static_cast<int>(control.MaxLength()));
    const QString text = ToQt(control.Text());
    if (line.text() != text) line.setText(text);
  });
}

void Binder::JoinTerminal(TextBox& control, TerminalView& terminal) {
  connect(&terminal, &TerminalView::Typed, this, [this, &control](const std::string& characters) {
    ActOn(control, [&control, characters] { control.UserType(characters); });
  });
  Follow(control, [this, &control, &terminal] {
    ShowCommon(control, terminal);
    QPalette palette = terminal.palette();
    palette.setColor(QPalette::Text, ToColor(control.ForeColor()));
    palette.setColor(QPalette::Base, ToColor(control.BackColor()));
    if (palette != terminal.palette()) terminal.setPalette(palette);
    QFont font = terminal.font();
    font.setBold(control.Bold());
    if (font != terminal.font()) terminal.setFont(font);
    terminal.Follow(control.Text());
  });
}

void Binder::JoinList(ListBox& control, QComboBox& box) {
  box.setInsertPolicy(QComboBox::NoInsert);
  connect(&box, &QComboBox::activated, this, [this, &control](int index) {
    ActOn(control, [&control, index] { control.UserSelect(index); });
  });
  Follow(control, [this, &control, &box] {
    const QSignalBlocker quiet(box);
    ShowCommon(control, box);
    ShowItems(control, box);
    if (box.isEditable() != control.Editable()) {
      box.setEditable(control.Editable());
      JoinTyping(control, box.lineEdit());
    }
    if (box.currentIndex() != control.ListIndex()) box.setCurrentIndex(control.ListIndex());
    const QString text = ToQt(control.Text());
    if (control.Editable() && box.currentText() != text) box.setEditText(text);
  });
}

// A list that can be typed into has a line of its own for as long as it can.
void Binder::JoinTyping(ListBox& control, QLineEdit* line) {
  if (line == nullptr) return;
  connect(line, &QLineEdit::textEdited, this, [this, &control](const QString& text) {
    ActOn(control, [&control, typed = FromQt(text)] { control.UserEdit(typed); });
  });
}

void Binder::JoinSlider(Slider& control, QSlider& slider) {
  slider.setSingleStep(control.SmallChange);
  slider.setPageStep(control.LargeChange);
  connect(&slider, &QSlider::valueChanged, this, [this, &control](int value) {
    if (value == control.Value()) return;
    ActOn(control, [&control, value] { control.UserSlide(value); });
  });
  Follow(control, [this, &control, &slider] {
    ShowCommon(control, slider);
    {
      // A value that the new bounds push aside is no act of the user's.
      const QSignalBlocker quiet(slider);
      slider.setRange(control.Min(), control.Max());
    }
    slider.setValue(control.Value());
  });
}

void Binder::JoinProgress(ProgressBar& control, QProgressBar& bar) {
  Follow(control, [this, &control, &bar] {
    ShowCommon(control, bar);
    bar.setRange(control.Min(), control.Max());
    bar.setValue(control.Value());
  });
}

void Binder::JoinTabs(TabStrip& control, QTabBar& bar) {
  for (const std::string& tab : control.Tabs) {
    const int index = bar.addTab(OnTwoLines(WithoutMnemonics(tab)));
    bar.setAccessibleTabName(index, ToQt(tab));
  }
  connect(&bar, &QTabBar::currentChanged, this, [this, &control](int index) {
    ActOn(control, [&control, index] { control.UserSelect(index + 1); });
  });
  Follow(control, [this, &control, &bar] {
    const QSignalBlocker quiet(bar);
    ShowCommon(control, bar);
    bar.setCurrentIndex(control.SelectedIndex() - 1);
  });
}

}  // namespace quillmark
