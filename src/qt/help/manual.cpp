#include "qt/help/manual.h"

#include <QFile>
#include <QImageReader>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <stdexcept>
#include <vector>

namespace quillmark {

namespace {

constexpr const char* names[] = {
    "settings-and-access", "keyboard",        "configuration-files", "without-a-radio",
    "store-and-restore",   "radio-history",   "firmware-upgrade",    "diagnostics",
    "serial-port",         "store-and-files", "simulated-radio",     "wire-dialect",
};

constexpr int widestPicture = 640;  // pixels

// A piece of a document in one format.
struct Piece {
  int From;
  int Length;
  QTextCharFormat Format;
};

// They are gathered first: a change of the document moves its pieces.
std::vector<Piece> PiecesOf(const QTextDocument& document) {
  std::vector<Piece> pieces;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextFragment part = at.fragment();
      pieces.push_back({part.position(), part.length(), part.charFormat()});
    }
  }
  return pieces;
}

void SetFormat(QTextDocument& document, const Piece& piece, const QTextCharFormat& format) {
  QTextCursor cursor(&document);
  cursor.setPosition(piece.From);
  cursor.setPosition(piece.From + piece.Length, QTextCursor::KeepAnchor);
  cursor.setCharFormat(format);
}

// "The line's own state" is "the-lines-own-state".
QString AnchorOf(const QString& heading) {
  QString anchor;
  for (const QChar c : heading.toLower()) {
    if (c.isLetterOrNumber() || c == u'-' || c == u'_') anchor += c;
    if (c == u' ') anchor += u'-';
  }
  return anchor;
}

void DrawTables(QTextDocument& document) {
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setCellPadding(4);
    format.setCellSpacing(0);
    table->setFormat(format);
  }
}

}  // namespace

Manual::Manual(const QString& place) : folder(place) {
  for (const char* const name : names) {
    QTextDocument document;
    document.setMarkdown(Source(QLatin1String(name)), QTextDocument::MarkdownDialectGitHub);
    pages.push_back({QLatin1String(name), document.firstBlock().text()});
  }
}

bool Manual::Has(const QString& name) const {
  return std::any_of(pages.begin(), pages.end(),
                     [&name](const Page& page) { return page.Name == name; });
}

QString Manual::Source(const QString& name) const {
  QFile file(folder + u'/' + name + QStringLiteral(".md"));
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error(qPrintable(file.fileName() + QStringLiteral(" can't be read")));
  }
  return QString::fromUtf8(file.readAll());
}

void Manual::NameHeadings(QTextDocument& document) const {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || block.text().isEmpty()) continue;
    QTextCharFormat anchor;
    anchor.setAnchor(true);
    anchor.setAnchorNames({AnchorOf(block.text())});
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(anchor);
  }
}

void Manual::MendLinks(QTextDocument& document) const {
  for (const Piece& piece : PiecesOf(document)) {
    QTextCharFormat format = piece.Format;
    QUrl target(format.anchorHref());
    if (!format.isAnchor() || format.anchorHref().isEmpty() || !target.isRelative()) continue;
    const QString path = target.path();
    const QString name = path.chopped(path.endsWith(QLatin1String(".md")) ? 3 : 0);
    if (path.isEmpty()) continue;
    if (Has(name)) {
      target.setPath(name + QStringLiteral(".html"));
      format.setAnchorHref(target.toString());
    } else {
      format.setAnchor(false);
      format.clearProperty(QTextFormat::AnchorHref);
      format.clearForeground();
      format.setFontUnderline(false);
    }
    SetFormat(document, piece, format);
  }
}

void Manual::FitPictures(QTextDocument& document, const QString& pictures) const {
  for (const Piece& piece : PiecesOf(document)) {
    if (!piece.Format.isImageFormat()) continue;
    QTextImageFormat format = piece.Format.toImageFormat();
    const QSize size = QImageReader(folder + u'/' + format.name()).size();
    if (size.width() > widestPicture) {
      format.setWidth(widestPicture);
      format.setHeight(static_cast<double>(widestPicture) * size.height() / size.width());
    }
    format.setName(pictures + format.name().section(u'/', -1));
    SetFormat(document, piece, format);
  }
}

QString Manual::Html(const QString& name, const QString& pictures) const {
  if (!Has(name)) return {};
  QTextDocument document;
  document.setMarkdown(Source(name), QTextDocument::MarkdownDialectGitHub);
  document.setMetaInformation(QTextDocument::DocumentTitle, document.firstBlock().text());
  NameHeadings(document);
  MendLinks(document);
  FitPictures(document, pictures);
  DrawTables(document);
  return document.toHtml();
}

QString Manual::Text(const QString& name) const {
  QTextDocument document;
  document.setMarkdown(Source(name), QTextDocument::MarkdownDialectGitHub);
  return document.toPlainText();
}

QString Manual::Index() const {
  QString list = QStringLiteral("# Quillmark Console\n\n");
  for (const Page& page : pages) list += "- [" + page.Title + "](" + page.Name + ".html)\n";
  QTextDocument document;
  document.setMarkdown(list, QTextDocument::MarkdownDialectGitHub);
  document.setMetaInformation(QTextDocument::DocumentTitle, QStringLiteral("Quillmark Console"));
  return document.toHtml();
}

}  // namespace quillmark
