#pragma once

#include <QMap>
#include <QTextBrowser>
#include <QWidget>

#include "qt/help/manual.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace quillmark {

// A page of the manual, with its links and a way back.
class ManualBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  explicit ManualBrowser(const Manual& manual, QWidget* parent = nullptr);

  void ShowPage(const QString& name);
  // The name of the page that is shown.
  QString Shown() const;

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  const Manual& manual;
};

// The manual in a window: the list of its pages, the page, a line that searches all pages and a bar
// (Ctrl+F) that finds words in one. What is searched for leaves only the pages that hold it in the
// list, each with the number of places.
class HelpView : public QWidget {
  Q_OBJECT

 public:
  explicit HelpView(QWidget* parent = nullptr);

  // Shows a page, unless it is there already or the manual has none of that name.
  void ShowPage(const QString& name);

  QSize sizeHint() const override;

 signals:
  // The user has gone to that page.
  void PageShown(const QString& name);

 private:
  QWidget* MakeList();
  QWidget* MakePage();
  void Search(const QString& words);
  void OpenChosen();
  void FollowPage(const QString& name);
  // The number of places that hold the words, without regard to case.
  qsizetype Places(const QString& page, const QString& words);

  Manual manual;
  QMap<QString, QString> texts;  // of the pages that were searched, by name
  QLineEdit* line;
  QListWidget* list;
  QLabel* outcome;
  ManualBrowser* browser;
};

}  // namespace quillmark
