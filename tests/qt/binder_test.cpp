#include "qt/binder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <memory>
#include <stdexcept>

#include "app/console.h"
#include "app/frmSplash.h"
#include "link/frmProperties.h"
#include "qt/clickable_text.h"
#include "qt/machine.h"

namespace quillmark {
namespace {

struct PlainActs : Acts {
  void Act(const std::function<void()>& act) override { act(); }
  void ActAfterwards(const std::function<void()>& act) override { act(); }
};

std::string MisfitsOf(Form& form, QWidget& window) {
  PlainActs acts;
  Binder binder(form, window, acts);
  try {
    binder.Join();
  } catch (const std::logic_error& misfit) {
    return misfit.what();
  }
  return "";
}

TEST(Binder, EveryWindowFitsItsForm) {
  Machine machine;
  Platform platform = machine.AsPlatform(machine.Boxes);
  Console console(platform);
  const auto splash =
      std::make_shared<frmSplash>(machine.Events, machine.Screen, console.Shared(), [] {});
  const auto setup =
      std::make_shared<frmProperties>(platform, console.Shared(), console.Main(), [] {});
  for (Form* form : {static_cast<Form*>(&console.Main()), static_cast<Form*>(splash.get()),
                     static_cast<Form*>(setup.get())}) {
    const std::unique_ptr<QWidget> window(MakeWindow(form->Name(), nullptr));
    ASSERT_NE(window, nullptr) << form->Name();
    EXPECT_EQ(MisfitsOf(*form, *window), "");
  }
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
};

TEST(Binder, TellsEveryMisfitAtOnce) {
  SmallForm form;
  SmallWindow window;
  window.cmdGo->setObjectName("cmdGone");
  delete window.txtName;
  delete window.sldPower;
  window.Add<QComboBox>("sldPower");
  Button locked{form, &form, "cmdUnknown"};
  EXPECT_EQ(MisfitsOf(form, window),
            "The window frmSmall does not fit its controls:\n"
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

  form.sldPower.Enabled = false;
  form.sldPower.Max = 22;
  EXPECT_FALSE(window.sldPower->isEnabled());
  EXPECT_EQ(form.sldPower.Value(), 28);
}

TEST(Binder, AValueLooksClickableOnlyWhereItIs) {
  SmallForm form;
  SmallWindow window;
  PlainActs acts;
  Binder binder(form, window, acts);
  form.Mode.MousePointer = Pointer::Arrow;
  binder.Join();
  // A promise without a handler is a lock.
  EXPECT_FALSE(window.Mode->IsClickable());
  EXPECT_EQ(window.Mode->toolTip(), "Changing settings comes in a later version.");
}

}  // namespace
}  // namespace quillmark
