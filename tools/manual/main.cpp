// quillmark_manual: makes the manual for users out of Markdown pages. It writes one HTML page for
// each into a folder, and an index of them.

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextBlock>
#include <QTextDocument>
#include <cstdio>
#include <stdexcept>

namespace {

QString Read(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error(qPrintable(name + " can not be read"));
  }
  return QString::fromUtf8(file.readAll());
}

void Write(const QString& name, const QString& text) {
  QFile file(name);
  if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
    throw std::runtime_error(qPrintable(name + " can not be written"));
  }
}

// The page with its first line as the title. Links to pages of the manual lead to their HTML.
QString HtmlOf(const QString& markdown, QString& title) {
  QTextDocument document;
  document.setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
  title = document.firstBlock().text();
  document.setMetaInformation(QTextDocument::DocumentTitle, title);
  QString html = document.toHtml();
  return html.replace(QLatin1String(".md\""), QLatin1String(".html\""))
      .replace(QLatin1String("src=\"pictures/"), QLatin1String("src=\"../pictures/"));
}

void MakeManual(const QDir& folder, const QStringList& pages) {
  QString index = QStringLiteral("# Quillmark Console\n\n");
  QString title;
  for (const QString& page : pages) {
    const QString name = QFileInfo(page).completeBaseName();
    Write(folder.filePath(name + ".html"), HtmlOf(Read(page), title));
    index += "- [" + title + "](" + name + ".html)\n";
  }
  Write(folder.filePath(QStringLiteral("index.html")), HtmlOf(index, title));
}

}  // namespace

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 3) {
    std::fputs("usage: quillmark_manual FOLDER PAGE.md...\n", stderr);
    return 2;
  }
  try {
    const QDir folder(arguments[1]);
    folder.mkpath(QStringLiteral("."));
    MakeManual(folder, arguments.mid(2));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quillmark_manual: %s\n", error.what());
    return 1;
  }
  return 0;
}
