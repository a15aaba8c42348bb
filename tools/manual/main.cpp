// quillmark_manual: writes the manual for users as HTML, a page for each of its pages and an index
// of them.

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>
#include <stdexcept>

#include "qt/help/manual.h"

namespace {

void Write(const QString& name, const QString& text) {
  const QByteArray bytes = text.toUtf8();
  QFile file(name);
  if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
    throw std::runtime_error(qPrintable(name + " can't be written"));
  }
}

void WriteManual(const quillmark::Manual& manual, const QDir& folder) {
  folder.mkpath(QStringLiteral("."));
  for (const auto& page : manual.Pages()) {
    Write(folder.filePath(page.Name + ".html"),
          manual.Html(page.Name, QStringLiteral("../pictures/")));
  }
  Write(folder.filePath(QStringLiteral("index.html")), manual.Index());
}

}  // namespace

int main(int argc, char* argv[]) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 3) {
    std::fputs("usage: quillmark_manual PAGES FOLDER\n", stderr);
    return 2;
  }
  try {
    WriteManual(quillmark::Manual(arguments[1]), QDir(arguments[2]));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quillmark_manual: %s\n", error.what());
    return 1;
  }
  return 0;
}
