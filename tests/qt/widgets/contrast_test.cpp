// Each text of each window can be read, light and dark: measured in the pixels that are drawn.

#include "qt/desktop/contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>

#include "qt/binding/window_registry.h"
#include "qt/widgets/painted_controls.h"
#include "qt/window_forms.h"

namespace quillmark {
namespace {

// Thin strokes have their full ink only when they are drawn large.
constexpr int scale = 3;

// Of texts that stand for something that can't be used now, too.
constexpr double least = 4.5;

// A place in a widget where a text stands.
struct Place {
  QRect Area;
  bool Enabled;
};

double Linear(double share) {
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(QRgb pixel) {
  return 0.2126 * Linear(qRed(pixel) / 255.0) + 0.7152 * Linear(qGreen(pixel) / 255.0) +
         0.0722 * Linear(qBlue(pixel) / 255.0);
}

double ContrastOf(QRgb one, QRgb other) {
  const auto [dark, light] = std::minmax(Luminance(one), Luminance(other));
  return (light + 0.05) / (dark + 0.05);
}

// Of the colour that stands out most against the commonest one.
double MeasuredContrast(const QImage& drawn) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) ++counts[drawn.pixel(x, y)];
  }
  const auto ground = std::ranges::max_element(counts, {}, [](const auto& c) { return c.second; });
  double most = 1;
  for (const auto& [color, count] : counts) {
    if (count >= scale) most = std::max(most, ContrastOf(color, ground->first));
  }
  return most;
}

template <class Option, class Widget>
Option OptionOf(const Widget& widget) {
  struct Open : Widget {
    using Widget::initStyleOption;
  };
  Option option;
  (static_cast<const Widget&>(widget).*(&Open::initStyleOption))(&option);
  return option;
}

std::vector<Place> TabsOf(const QTabBar& bar) {
  std::vector<Place> places;
  places.reserve(static_cast<std::size_t>(bar.count()));
  for (int i = 0; i < bar.count(); ++i) {
    places.push_back({bar.tabRect(i).adjusted(6, 6, -6, -6), bar.isEnabled()});
  }
  return places;
}

std::vector<Place> EntriesOf(const QMenuBar& bar) {
  std::vector<Place> places;
  places.reserve(static_cast<std::size_t>(bar.actions().size()));
  for (QAction* action : bar.actions()) {
    places.push_back({bar.actionGeometry(action), action->isEnabled()});
  }
  return places;
}

// The whole of a widget but its rim, in pixels; nothing of one without a text.
std::vector<Place> Inside(const QWidget& widget, const QString& text, const QMargins& rim) {
  if (text.isEmpty()) return {};
  return {{widget.rect().marginsRemoved(rim), widget.isEnabled()}};
}

std::vector<Place> TextsOfButton(const QAbstractButton& button) {
  if (const auto* tool = qobject_cast<const QToolButton*>(&button)) {
    const bool bare = tool->toolButtonStyle() == Qt::ToolButtonIconOnly;
    return Inside(button, bare ? QString() : tool->text(), {4, button.height() / 2, 4, 3});
  }
  const bool box = qobject_cast<const QPushButton*>(&button) == nullptr;
  return Inside(button, button.text(), {box ? 20 : 5, 4, 5, 4});
}

std::vector<Place> TextsOfList(const QComboBox& box) {
  const auto option = OptionOf<QStyleOptionComboBox>(box);
  const QRect edit =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
  const int icon = box.itemIcon(box.currentIndex()).isNull() ? 0 : box.iconSize().width() + 4;
  return {{edit.adjusted(icon, 2, -2, -2), box.isEnabled()}};
}

std::vector<Place> TextsOfGroup(const QGroupBox& group) {
  if (group.title().isEmpty()) return {};
  const auto option = OptionOf<QStyleOptionGroupBox>(group);
  return {{group.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel,
                                         &group),
           group.isEnabled()}};
}

// Of fields, and of what is painted: there below the bars.
std::vector<Place> TextsOfField(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    return Inside(widget, label->text(), {3, 3, 3, 3});
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
    return Inside(widget, line->displayText(), {4, 4, 4, 4});
  }
  if (const auto* page = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return Inside(widget, page->toPlainText(), {4, 4, 4, 4});
  }
  const bool painted = dynamic_cast<const PaintedControls*>(&widget) != nullptr;
  return Inside(widget, painted ? "painted" : "", {4, widget.height() * 4 / 5, 4, 4});
}

// Where texts stand in a widget; none for one that has none.
std::vector<Place> TextsOf(const QWidget& widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    return TextsOfButton(*button);
  }
  if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return TextsOfList(*box);
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return TextsOfGroup(*group);
  if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) return TabsOf(*bar);
  if (const auto* bar = qobject_cast<const QMenuBar*>(&widget)) return EntriesOf(*bar);
  return TextsOfField(widget);
}

QImage Draw(QWidget& window) {
  QImage image(window.size() * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  window.render(&image);
  return image;
}

int CheckTexts(QWidget& window, const QImage& drawn) {
  int checked = 0;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisibleTo(&window)) continue;
    for (const Place& place : TextsOf(*widget)) {
      const QRect seen = place.Area.intersected(widget->visibleRegion().boundingRect());
      if (seen.width() < 4 || seen.height() < 4) continue;
      const QRect at(widget->mapTo(&window, seen.topLeft()) * scale, seen.size() * scale);
      const double contrast = MeasuredContrast(drawn.copy(at));
      EXPECT_GE(contrast, least) << widget->metaObject()->className() << " "
                                 << widget->objectName().toStdString()
                                 << (place.Enabled ? "" : ", disabled") << " at " << seen.x() << ","
                                 << seen.y();
      ++checked;
    }
  }
  return checked;
}

struct Contrasts : testing::Test {
  // Draws a window light and dark.
  void Check(const WindowRow& row) {
    const std::string name(row.Name);
    const auto form = program.Forms.Make(name);
    // Without its timers a window waits for no radio, and does not go by itself.
    for (Control* control : form->Controls()) {
      if (auto* timer = dynamic_cast<Timer*>(control)) timer->Enabled = false;
    }
    program.Platform.Windows.Show(form);
    QWidget* window = program.Machine.Shown.WindowOf(*form);
    ASSERT_NE(window, nullptr);
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
      SCOPED_TRACE(name + (theme == Theme::Dark ? ", dark" : ", light"));
      program.Platform.Desktop.UseTheme(theme);
      WaitUntil(program.Platform.Events, Milliseconds(60), [] { return false; });
      EXPECT_EQ(IsDark(window->palette()), theme == Theme::Dark);
      // This one holds a picture alone.
      EXPECT_GT(CheckTexts(*window, Draw(*window)), name == "frmSimpleRptrSetup" ? -1 : 0);
    }
    program.Platform.Desktop.UseTheme(Theme::AsDesktop);
    if (!row.Main) form->Unload();
  }
  ~Contrasts() override { program.Machine.Shown.CloseAll(); }

  IdleProgram program;
};

TEST_F(Contrasts, OfEachTextOfEachWindowAreEnough) {
  program.Console.Main().txtTerm.Text = "PWR 30 dBm";
  for (const WindowRow& row : AllWindows()) Check(row);
  program.Console.Main().ButtonAdv_Click();
  Check(*WindowNamed("frmOrvalent"));
}

}  // namespace
}  // namespace quillmark
