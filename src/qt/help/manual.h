#pragma once

#include <QList>
#include <QString>

class QTextDocument;

namespace quillmark {

// The manual for users: those pages of docs/ that they need, read from Markdown by Qt's own reader.
// The help window shows it, and the package holds it as HTML. A page's name is that of its file
// without the ending; pages are HTML under that name with ".html".
class Manual {
 public:
  // A page and its first line.
  struct Page {
    QString Name;
    QString Title;
  };

  // `folder` holds the pages, and their pictures in "pictures". Throws std::runtime_error when one
  // can't be read.
  explicit Manual(const QString& folder);

  // In the order of reading.
  const QList<Page>& Pages() const { return pages; }
  bool Has(const QString& name) const;
  // Links to other pages lead to their HTML, those to anything else of the project are plain text.
  // Each heading is an anchor, named as in Markdown. `pictures` is where the page finds its
  // pictures. Empty for a page that is not there.
  QString Html(const QString& name, const QString& pictures = QStringLiteral("pictures/")) const;
  // The page's words, for searching.
  QString Text(const QString& name) const;
  // A page of links to all others.
  QString Index() const;

 private:
  QString Source(const QString& name) const;
  void NameHeadings(QTextDocument& document) const;
  void MendLinks(QTextDocument& document) const;
  void FitPictures(QTextDocument& document, const QString& pictures) const;

  QString folder;
  QList<Page> pages;
};

}  // namespace quillmark
