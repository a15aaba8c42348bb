#include "qt/help/help_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include "qt/widgets/find_bar.h"

namespace quillmark {

namespace {

constexpr int usualColumns = 165;  // average characters, the list included
constexpr int usualRows = 42;
constexpr int listColumns = 48;

const QString manualFolder = QStringLiteral(":/manual");

// "keyboard" of "qrc:/manual/keyboard.html".
QString PageOf(const QUrl& address) { return address.path().section(u'/', -1).section(u'.', 0, 0); }

}  // namespace

ManualBrowser::ManualBrowser(const Manual& shown, QWidget* parent)
    : QTextBrowser(parent), manual(shown) {
  setOpenExternalLinks(true);
  setAccessibleName(tr("Page of the manual"));
}

void ManualBrowser::ShowPage(const QString& name) {
  setSource(QUrl(QStringLiteral("qrc:/manual/") + name + QStringLiteral(".html")));
}

QString ManualBrowser::Shown() const { return PageOf(source()); }

QVariant ManualBrowser::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::HtmlResource) return QTextBrowser::loadResource(type, name);
  return manual.Html(PageOf(name));
}

HelpView::HelpView(QWidget* parent)
    : QWidget(parent),
      manual(manualFolder),
      line(new QLineEdit(this)),
      list(new QListWidget(this)),
      outcome(new QLabel(this)),
      browser(new ManualBrowser(manual, this)) {
  auto* halves = new QSplitter(this);
  halves->addWidget(MakeList());
  halves->addWidget(MakePage());
  halves->setStretchFactor(1, 1);
  halves->setChildrenCollapsible(false);
  auto* whole = new QHBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(halves);
  // The browser tells its page one change late.
  connect(browser, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) {
    FollowPage(PageOf(page));
    emit PageShown(PageOf(page));
  });
  connect(line, &QLineEdit::textChanged, this, &HelpView::Search);
  connect(line, &QLineEdit::returnPressed, this, &HelpView::OpenChosen);
  connect(list, &QListWidget::itemClicked, this, &HelpView::OpenChosen);
  connect(list, &QListWidget::itemActivated, this, &HelpView::OpenChosen);
  Search({});
  browser->ShowPage(manual.Pages().front().Name);
  browser->setFocus();
}

QWidget* HelpView::MakeList() {
  auto* half = new QWidget(this);
  auto* column = new QVBoxLayout(half);
  column->setContentsMargins(0, 0, 0, 0);
  auto* caption = new QLabel(tr("&Search all pages:"), half);
  caption->setBuddy(line);
  line->setClearButtonEnabled(true);
  line->setAccessibleName(tr("Search all pages"));
  list->setAccessibleName(tr("Pages"));
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setMinimumWidth(fontMetrics().averageCharWidth() * listColumns);
  for (QWidget* widget : std::initializer_list<QWidget*>{caption, line, list, outcome}) {
    column->addWidget(widget);
  }
  return half;
}

QWidget* HelpView::MakePage() {
  auto* half = new QWidget(this);
  auto* column = new QVBoxLayout(half);
  column->setContentsMargins(0, 0, 0, 0);
  auto* back = new QToolButton(half);
  back->setText(tr("Back"));
  back->setAccessibleName(tr("Back"));
  back->setToolTip(tr("Goes back to the page before (Alt+Left)"));
  back->setEnabled(false);
  connect(back, &QToolButton::clicked, browser, &QTextBrowser::backward);
  connect(browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  auto* find = new FindBar(half);
  find->Serve(*browser, *this);
  column->addWidget(back);
  column->addWidget(browser, 1);
  column->addWidget(find);
  return half;
}

void HelpView::ShowPage(const QString& name) {
  if (manual.Has(name) && name != browser->Shown()) browser->ShowPage(name);
}

QSize HelpView::sizeHint() const {
  return {fontMetrics().averageCharWidth() * usualColumns, fontMetrics().height() * usualRows};
}

void HelpView::Search(const QString& words) {
  list->clear();
  for (const Manual::Page& page : manual.Pages()) {
    const qsizetype places = words.isEmpty() ? 0 : Places(page.Name, words);
    if (places == 0 && !words.isEmpty()) continue;
    const QString count = words.isEmpty() ? QString() : QStringLiteral("  (%1)").arg(places);
    auto* item = new QListWidgetItem(page.Title + count, list);
    item->setData(Qt::UserRole, page.Name);
  }
  outcome->setText(list->count() == 0 ? tr("No page holds that.") : QString());
  FollowPage(browser->Shown());
  if (list->currentItem() == nullptr) list->setCurrentRow(0);
}

qsizetype HelpView::Places(const QString& page, const QString& words) {
  if (!texts.contains(page)) texts[page] = manual.Text(page);
  return texts[page].count(words, Qt::CaseInsensitive);
}

// The first place that holds what is searched for is shown.
void HelpView::OpenChosen() {
  const QListWidgetItem* item = list->currentItem();
  if (item == nullptr) return;
  browser->ShowPage(item->data(Qt::UserRole).toString());
  browser->moveCursor(QTextCursor::Start);
  if (!line->text().isEmpty()) browser->find(line->text());
}

void HelpView::FollowPage(const QString& name) {
  for (int row = 0; row < list->count(); ++row) {
    if (list->item(row)->data(Qt::UserRole) == name) list->setCurrentRow(row);
  }
}

}  // namespace quillmark
