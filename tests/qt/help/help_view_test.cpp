#include "qt/help/help_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QToolButton>

namespace quillmark {
namespace {

QString Attribute(const QString& html, const QString& name, qsizetype& from) {
  const QRegularExpression expression(name + QStringLiteral("=\"([^\"]*)\""));
  const auto match = expression.match(html, from);
  from = match.hasMatch() ? match.capturedEnd() : -1;
  return match.captured(1);
}

std::vector<QString> All(const QString& html, const QString& name) {
  std::vector<QString> values;
  for (qsizetype at = 0; at >= 0;) {
    const QString value = Attribute(html, name, at);
    if (at >= 0) values.push_back(value);
  }
  return values;
}

// The widget of the help window with that text or accessible name.
template <class Widget>
Widget* Named(const QWidget& view, const char* name) {
  for (Widget* widget : view.findChildren<Widget*>()) {
    if (widget->accessibleName() == QLatin1String(name)) return widget;
  }
  return nullptr;
}

// Whatever is clicked in a page must be there: in the program and in the package.
TEST(ManualPages, EachLinkLeadsToAPageOfTheManualAndEachPictureIsThere) {
  const Manual manual(QStringLiteral(":/manual"));
  int links = 0;
  int pictures = 0;
  for (const Manual::Page& page : manual.Pages()) {
    const QString html = manual.Html(page.Name);
    for (const QString& target : All(html, QStringLiteral("href"))) {
      if (target.contains(QLatin1String("://"))) continue;
      ++links;
      const QString file = target.section(u'#', 0, 0);
      const QString name = file.isEmpty() ? page.Name : file.chopped(5);
      EXPECT_TRUE(manual.Has(name)) << qPrintable(page.Name + " links to " + target);
      const QString anchor = target.section(u'#', 1);
      if (anchor.isEmpty()) continue;
      EXPECT_TRUE(manual.Html(name).contains("name=\"" + anchor + "\"")) << qPrintable(target);
    }
    for (const QString& picture : All(html, QStringLiteral("src"))) {
      ++pictures;
      EXPECT_TRUE(QFile::exists(":/manual/" + picture)) << qPrintable(page.Name + picture);
    }
  }
  EXPECT_GT(links, 3);
  EXPECT_GT(pictures, 0);
}

TEST(HelpWindow, SearchesAllPagesAndGoesBack) {
  HelpView view;
  auto& list = *view.findChild<QListWidget*>();
  auto& line = *Named<QLineEdit>(view, "Search all pages");
  auto& browser = *view.findChild<ManualBrowser*>();
  auto& back = *Named<QToolButton>(view, "Back");
  const QString first = browser.Shown();
  const int pages = list.count();
  EXPECT_FALSE(back.isEnabled());

  line.setText(QStringLiteral("s-RECORD"));
  EXPECT_LT(list.count(), pages);
  EXPECT_THAT(list.item(0)->text().toStdString(),
              testing::MatchesRegex("The firmware.*[(][0-9]+[)]"));
  emit line.returnPressed();
  EXPECT_EQ(browser.Shown(), QStringLiteral("firmware-upgrade"));
  EXPECT_EQ(browser.textCursor().selectedText().toLower(), QStringLiteral("s-record"));
  line.setText(QStringLiteral("no page holds this"));
  EXPECT_EQ(list.count(), 0);
  line.clear();
  EXPECT_EQ(list.count(), pages);
  EXPECT_EQ(list.currentItem()->data(Qt::UserRole), browser.Shown());
  back.click();
  EXPECT_EQ(browser.Shown(), first);
}

}  // namespace
}  // namespace quillmark
