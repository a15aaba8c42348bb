// How the controls that are clicked or looked at are joined to their widgets.

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "qt/binding/binder.h"
#include "qt/text/latin1.h"
#include "qt/widgets/clickable_text.h"
#include "qt/widgets/color_block.h"
#include "qt/widgets/colors.h"
#include "qt/widgets/eliding_button.h"
#include "qt/widgets/notice_line.h"
#include "qt/widgets/plain_tip.h"

namespace quillmark {

namespace {

// The point size that the logic's font sizes are measured against.
constexpr double usualFontSize = 8;
constexpr std::uint32_t linkColor = 0xFF0000;

// The count stands in the shorter line, so that the tab is no wider for it.
void ShowCaption(const TabStrip& control, QTabBar& bar, int tab) {
  const auto place = static_cast<std::size_t>(tab);
  const QString caption = ToQt(control.Caption(place));
  QStringList lines = OnTwoLines(WithoutMnemonics(control.Tabs[place])).split(QLatin1Char('\n'));
  const bool first = lines.size() > 1 && lines.front().size() < lines.back().size();
  (first ? lines.front() : lines.back()) += caption.mid(ToQt(control.Tabs[place]).size());
  bar.setTabText(tab, lines.join(QLatin1Char('\n')));
  bar.setAccessibleTabName(tab, caption);
}

void ShowFont(const Clickable& control, QWidget& widget) {
  if (control.FontSize() <= 0) return;
  QFont font = widget.parentWidget()->font();
  font.setPointSizeF(font.pointSizeF() * control.FontSize() / usualFontSize);
  widget.setFont(font);
}

// An address has the theme's own colour of links in place of the logic's blue, whichever theme that
// is.
void ShowColor(const Clickable& control, QWidget& widget) {
  if (control.ForeColor() == linkColor) {
    widget.setForegroundRole(QPalette::Link);
  } else if (control.ForeColor() != 0) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, ToColor(control.ForeColor()));
    widget.setPalette(palette);
  }
}

// What a screen reader says of a value.
QString WithMark(const ValueField& control) {
  const QString text = ToQt(OnOneLine(control.Text()));
  return control.Mark().empty() ? text : text + QStringLiteral(". ") + ToQt(control.Mark());
}

}  // namespace

QString Binder::TipOf(const Control& control) const {
  const auto lock = lockTips.find(&control);
  return PlainTip(lock == lockTips.end() ? control.ToolTip() : lock->second);
}

void Binder::ShowCommon(const Control& control, QWidget& widget, bool lockable) {
  widget.setEnabled(control.Enabled() && !(lockable && Locked(control)));
  widget.setVisible(control.Visible());
  // Setting it costs some events, even if it is the same.
  if (const QString tip = TipOf(control); tip != widget.toolTip()) widget.setToolTip(tip);
}

void Binder::JoinClick(Clickable& control, QAbstractButton& button) {
  connect(&button, &QAbstractButton::clicked, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
}

// The menu key asks for the same as the other mouse button; where the desktop knows no such key,
// Shift+F10 does.
void Binder::JoinRightClick(Button& control, QPushButton& button) {
  if (!control.OnRightClick) return;
  const auto act = [this, &control] { ActOn(control, [&control] { control.RightClick(); }); };
  button.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&button, &QWidget::customContextMenuRequested, this, act);
  auto* key = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F10), &button);
  key->setContext(Qt::WidgetShortcut);
  connect(key, &QShortcut::activated, this, act);
}

void Binder::JoinLamp(Lamp& control, QToolButton& button) {
  JoinClick(control, button);
  Follow(control, [this, &control, &button, own = button.icon()] {
    ShowCommon(control, button);
    button.setIcon(control.Warns() ? QIcon(QStringLiteral(":/icons/lamp-warning.svg")) : own);
    button.setAccessibleDescription(ToQt(control.ToolTip()));
  });
}

void Binder::JoinButton(Button& control, QPushButton& button) {
  JoinClick(control, button);
  JoinRightClick(control, button);
  // In a caption from a file "&" is no mnemonic.
  const bool literal = qobject_cast<ElidingButton*>(&button) != nullptr;
  Follow(control, [this, &control, &button, literal] {
    ShowCommon(control, button);
    ShowFont(control, button);
    const QString caption =
        literal ? WithoutMnemonics(OnOneLine(control.Text())) : ToQt(control.Text());
    if (button.text() != caption) button.setText(caption);
    if (literal) button.setAccessibleName(ToQt(OnOneLine(control.Text())));
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
// group shows what the controls say: a click that did not reach its control changes nothing.
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
    ShowFont(control, box);
    box.setText(ToQt(OnOneLine(control.Text())));
    box.SetMark(ToQt(OnOneLine(control.Mark())));
    box.setAccessibleDescription(WithMark(control));
    const bool promised = control.MousePointer() != Pointer::NoDrop;
    box.SetClickable(control.OnClick && promised && !Locked(control));
    box.SetDimmed(control.Stale());
    box.SetFound(control.Found());
  });
}

void Binder::JoinLabel(Label& control, CaptionLabel& label) {
  connect(&label, &ClickableText::Clicked, this,
          [this, &control] { ActOn(control, [&control] { control.Click(); }); });
  Follow(control, [this, &control, &label] {
    ShowCommon(control, label, false);
    ShowFont(control, label);
    ShowColor(control, label);
    const QString text = InLines(control.Text());
    // With a buddy "&" is a mnemonic, which only the caption of a field for typing has.
    const bool literal =
        label.buddy() != nullptr && qobject_cast<QLineEdit*>(label.buddy()) == nullptr;
    label.setText(literal ? WithoutMnemonics(text) : text);
    label.SetClickable(control.OnClick && !Locked(control));
  });
}

void Binder::JoinNotice(Notice& control, NoticeLine& line) {
  JoinClick(control, line);
  Follow(control, [this, &control, &line] {
    ShowCommon(control, line);
    line.SetSentence(ToQt(OnOneLine(control.Text())));
    line.setToolTip(PlainTip(control.Text()));
    line.SetClickable(static_cast<bool>(control.OnClick));
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
      // When the new bounds change the value, the user has not moved the slider.
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
    const QString count = tr("%v of %m");
    bar.setFormat(control.Doing().empty() ? count : ToQt(control.Doing()) + ' ' + count);
  });
}

void Binder::JoinTabs(TabStrip& control, QTabBar& bar) {
  for (const std::string& tab : control.Tabs) bar.addTab(ToQt(tab));
  // Left and Right reach what the scroll buttons do.
  for (QToolButton* scroll : bar.findChildren<QToolButton*>()) {
    scroll->setFocusPolicy(Qt::NoFocus);
  }
  connect(&bar, &QTabBar::currentChanged, this, [this, &control](int index) {
    ActOn(control, [&control, index] { control.UserSelect(index + 1); });
  });
  Follow(control, [this, &control, &bar] {
    const QSignalBlocker quiet(bar);
    ShowCommon(control, bar);
    for (int tab = 0; tab < bar.count(); ++tab) ShowCaption(control, bar, tab);
    bar.setCurrentIndex(control.SelectedIndex() - 1);
  });
}

void Binder::JoinShape(Shape& control, ColorBlock& block) {
  Follow(control, [this, &control, &block] {
    ShowCommon(control, block);
    block.SetLook(control.FillColor(), control.BorderColor(),
                  control.BorderStyle() == 0 ? 0 : control.BorderWidth());
  });
}

}  // namespace quillmark
