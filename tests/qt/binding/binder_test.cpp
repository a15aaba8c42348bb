#include "qt/binding/binder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <memory>
#include <stdexcept>

#include "qt/widgets/clickable_text.h"

namespace quillmark {
namespace {

struct PlainActs : Acts {
  void Act(const std::function<void()>& act) override { act(); }
  void ActAfterwards(const std::function<void()>& act) override { act(); }
};

std::string MisfitsOf(Form& form, QWidget& window, bool paints) {
  PlainActs acts;
  Binder binder(form, window, acts, paints);
  try {
    binder.Join();
  } catch (const std::logic_error& misfit) {
    return misfit.what();
  }
  return "";
}

struct SmallForm : Form {
  SmallForm() : Form("frmSmall") {
    cmdGo.OnClick = [this] { ++Clicks; };
  }
  Button cmdGo{*this, this, "cmdGo", "&Go"};
  CheckBox chkLog{*this, this, "chkLog", "Log"};
  ListBox cboRate{*this, this, "cboRate", {"300", "600"}};
  TextBox txtName{*this, this, "txtName", "n"};
  Slider sldPower{*this, this, "sldPower", 20, 30, 25};
  ValueField Mode{*this, this, "Mode", "n/a"};
  Label RmdLabel{*this, this, "RmdLabel", "Radio Mode"};
  OptionButton Rate_0{*this, this, "Rate_0", "1200"};
  OptionButton Rate_1{*this, this, "Rate_1", "2400"};
  OptionButton On_0{*this, this, "On_0", "On"};
  int Clicks = 0;
};

struct SmallWindow : QWidget {
  template <class Widget>
  Widget* Add(const char* name) {
    auto* widget = new Widget(this);
    widget->setObjectName(name);
    return widget;
  }
  QPushButton* cmdGo = Add<QPushButton>("cmdGo");
  QCheckBox* chkLog = Add<QCheckBox>("chkLog");
  QComboBox* cboRate = Add<QComboBox>("cboRate");
  QLineEdit* txtName = Add<QLineEdit>("txtName");
  QSlider* sldPower = Add<QSlider>("sldPower");
  ValueBox* Mode = Add<ValueBox>("Mode");
  CaptionLabel* RmdLabel = Add<CaptionLabel>("RmdLabel");
  QRadioButton* Rate_0 = Add<QRadioButton>("Rate_0");
  QRadioButton* Rate_1 = Add<QRadioButton>("Rate_1");
  QRadioButton* On_0 = Add<QRadioButton>("On_0");
};

TEST(Binder, TellsEveryMisfitAtOnce) {
  SmallForm form;
  SmallWindow window;
  window.cmdGo->setObjectName("cmdGone");
  delete window.txtName;
  delete window.sldPower;
  window.Add<QComboBox>("sldPower");
  Button locked{form, &form, "cmdUnknown"};
  EXPECT_EQ(MisfitsOf(form, window, true),
            "The window frmSmall does not fit its controls:\n"
            "  no widget paints controls\n"
            "  cmdGo has no widget\n"
            "  txtName has no widget\n"
            "  sldPower has a widget of the wrong kind, QComboBox\n"
            "  cmdUnknown has no widget\n"
            "  cmdGone has no control\n"
            "  cmdUnknown does nothing, and is not in the table of locks");
}

TEST(Binder, TheWidgetFollowsTheControlAndTheControlTheUser) {
  SmallForm form;
  SmallWindow window;
  PlainActs acts;
  Binder binder(form, window, acts);
  binder.Join();
  EXPECT_EQ(window.cmdGo->text(), "&Go");

  window.cmdGo->click();
  window.chkLog->click();
  window.sldPower->setValue(28);
  EXPECT_EQ(form.Clicks, 1);
  EXPECT_TRUE(form.chkLog.Checked());
  EXPECT_EQ(form.sldPower.Value(), 28);

  // The logic has the last word on what the user did.
  form.chkLog.OnClick = [&] { form.chkLog.Checked = false; };
  form.chkLog.Checked = false;
  window.chkLog->click();
  EXPECT_FALSE(window.chkLog->isChecked());
  // An act that does not reach the control leaves no trace in its widget.
  form.Enabled = false;
  window.chkLog->click();
  EXPECT_FALSE(window.chkLog->isChecked());
  form.Enabled = true;
  emit window.txtName->textEdited(QString::fromUtf8("a\tb€\xC3\xA9"));
  EXPECT_EQ(form.txtName.Text(), "ab\xE9");
  EXPECT_EQ(window.txtName->text(), QString::fromUtf8("ab\xC3\xA9"));

  form.cboRate.Items = std::vector<std::string>{"300", "600", "1200"};
  form.cboRate.SetListIndex(2);
  EXPECT_EQ(window.cboRate->currentText(), "1200");
  emit window.cboRate->activated(1);
  EXPECT_EQ(form.cboRate.Text(), "600");
  EXPECT_EQ(window.cboRate->currentIndex(), 1);
}

TEST(Binder, OneOptionIsChosenAndTheControlsHaveTheLastWord) {
  SmallForm form;
  SmallWindow window;
  PlainActs acts;
  Binder binder(form, window, acts);
  binder.Join();
  const auto chosen = [&] {
    return std::pair(window.Rate_0->isChecked(), window.Rate_1->isChecked());
  };
  EXPECT_EQ(chosen(), std::pair(false, false));
  window.Rate_0->click();
  EXPECT_TRUE(form.Rate_0.Checked());
  form.Rate_1.SetChecked(true);
  EXPECT_EQ(chosen(), std::pair(false, true));
  window.On_0->click();
  EXPECT_TRUE(window.On_0->isChecked());
  EXPECT_EQ(chosen(), std::pair(false, true));
  form.Enabled = false;
  window.Rate_0->click();
  EXPECT_EQ(chosen(), std::pair(false, true));
}

TEST(Binder, ColoursStandBesideTheirNames) {
  SmallForm form;
  SmallWindow window;
  PlainActs acts;
  Binder binder(form, window, acts);
  form.cboRate.ItemColours = std::vector<std::uint32_t>{0x0000FF, 0xFFFFFF};
  binder.Join();
  const QImage red = window.cboRate->itemIcon(0).pixmap(16).toImage();
  EXPECT_EQ(red.pixelColor(red.rect().center()), QColor(255, 0, 0));
}

TEST(Binder, AValueLooksClickableOnlyWhereItIsAndF1ExplainsIt) {
  SmallForm form;
  SmallWindow window;
  PlainActs acts;
  Binder binder(form, window, acts);
  int explained = 0;
  int changed = 0;
  form.RmdLabel.ToolTip = "Click for more Information";
  form.RmdLabel.OnClick = [&] { ++explained; };
  form.Mode.OnClick = [&] { ++changed; };
  form.Mode.MousePointer = Pointer::Arrow;
  window.RmdLabel->setBuddy(window.Mode);
  binder.Join();
  const auto press = [](QWidget* widget, Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
  };
  press(window.Mode, Qt::Key_F1);
  press(window.Mode, Qt::Key_Return);
  EXPECT_EQ(explained, 1);
  EXPECT_EQ(changed, 1);
  EXPECT_EQ(window.RmdLabel->focusPolicy(), Qt::NoFocus);

  // A mode in which it can't be changed: the tab key still leads to its explanation.
  form.Mode.MousePointer = Pointer::NoDrop;
  form.Mode.Enabled = false;
  EXPECT_FALSE(window.Mode->IsClickable());
  EXPECT_EQ(window.Mode->focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(window.RmdLabel->focusPolicy(), Qt::TabFocus);
  press(window.RmdLabel, Qt::Key_Space);
  EXPECT_EQ(explained, 2);
  // A label keeps its tip where nothing happens at a click.
  form.RmdLabel.OnClick = nullptr;
  form.RmdLabel.Text = "R&D";
  EXPECT_EQ(window.RmdLabel->toolTip(), "Click for more Information");
  EXPECT_EQ(window.RmdLabel->text(), "R&&D");
}

}  // namespace
}  // namespace quillmark
