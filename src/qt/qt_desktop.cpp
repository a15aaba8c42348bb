#include "qt/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QScreen>
#include <QUrl>

#include "qt/form_size.h"
#include "qt/latin1.h"

namespace quillmark {

namespace {

constexpr const char* programFolder = "quillmark-console";

}  // namespace

void QtDesktop::OpenAddress(const std::string& address) {
  QDesktopServices::openUrl(QUrl(ToQt(address)));
}

void QtDesktop::Beep() { QApplication::beep(); }

double QtDesktop::ScreenWidth() const {
  return QGuiApplication::primaryScreen()->availableGeometry().width() * twipsPerPixel;
}

double QtDesktop::ScreenHeight() const {
  return QGuiApplication::primaryScreen()->availableGeometry().height() * twipsPerPixel;
}

std::filesystem::path UserFolder(const char* variable, const char* fallback) {
  const std::filesystem::path named = qgetenv(variable).toStdString();
  const std::filesystem::path home = QFile::encodeName(QDir::homePath()).toStdString();
  return (named.is_absolute() ? named : home / fallback) / programFolder;
}

std::filesystem::path QtProgramFiles::Shipped() const {
  const std::filesystem::path program =
      QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
  const auto installed = program.parent_path() / "share" / programFolder;
  std::error_code ignored;
  return std::filesystem::is_directory(installed, ignored) ? installed
                                                           : program / "share" / programFolder;
}

std::filesystem::path QtProgramFiles::Data() const {
  return UserFolder("XDG_DATA_HOME", ".local/share");
}

}  // namespace quillmark
