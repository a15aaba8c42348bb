#include "qt/desktop/qt_desktop.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QDesktopServices>
#include <QFile>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QUrl>
#include <cerrno>
#include <fstream>
#include <sstream>

#include "qt/desktop/form_size.h"
#include "qt/desktop/printed_report.h"
#include "qt/desktop/printing.h"
#include "qt/text/latin1.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

constexpr const char* programFolder = "quillmark-console";

constexpr const char* configVariable = "XDG_CONFIG_HOME";
constexpr const char* configFallback = ".config";
constexpr const char* dataVariable = "XDG_DATA_HOME";
constexpr const char* dataFallback = ".local/share";

// Empty when the variable holds no absolute path.
std::filesystem::path FolderIn(const char* variable) {
  std::filesystem::path named = qgetenv(variable).toStdString();
  return named.is_absolute() ? named : std::filesystem::path();
}

// Qt takes the root folder for a missing one, so it is not asked.
std::filesystem::path HomeFolder() {
  if (auto named = FolderIn("HOME"); !named.empty()) return named;
  const passwd* account = getpwuid(geteuid());
  if (account == nullptr || account->pw_dir == nullptr) return {};
  std::filesystem::path home = account->pw_dir;
  return home.is_absolute() ? home : std::filesystem::path();
}

// The program's folder in one of the user's own: `variable` if it holds an absolute path, else
// `fallback` under the home folder. Empty when there is neither.
std::filesystem::path UserFolder(const char* variable, const char* fallback) {
  const auto named = FolderIn(variable);
  if (!named.empty()) return named / programFolder;
  const auto home = HomeFolder();
  return home.empty() ? home : home / fallback / programFolder;
}

std::optional<PrintTrouble> PrintFile(const PrintTarget& target, const std::filesystem::path& file,
                                      const std::string& title) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  // An unreadable file fails here; the bare buffer would throw. An empty one is an empty report.
  const bool empty = in && in.peek() == std::ifstream::traits_type::eof() && !in.bad();
  if (!empty && !(in && text << in.rdbuf())) {
    return PrintTrouble{PathText(file) + " could not be read.", ""};
  }
  const QString date = QLocale::system().toString(QDate::currentDate(), QLocale::LongFormat);
  return PrintReport(PrintedReport(text.str(), ToQt(title), date), target);
}

}  // namespace

void QtDesktop::OpenAddress(const std::string& address) {
  QDesktopServices::openUrl(QUrl(ToQt(address)));
}

void QtDesktop::Beep() { QApplication::beep(); }

void QtDesktop::Copy(const std::string& text) {
  QGuiApplication::clipboard()->setText(InLines(text));
}

std::string QtDesktop::Surroundings() const {
  const QString system = QSysInfo::prettyProductName() + QStringLiteral(", ") +
                         QSysInfo::kernelType() + QLatin1Char(' ') + QSysInfo::kernelVersion() +
                         QStringLiteral(", ") + QSysInfo::currentCpuArchitecture();
  return "Qt " + std::string(qVersion()) + ", made for " QT_VERSION_STR "\r\n" + FromQt(system) +
         "\r\nWindow system: " + FromQt(QGuiApplication::platformName());
}

void QtDesktop::Print(const PrintTarget& target, const std::filesystem::path& file,
                      const std::string& title) {
  const auto trouble = PrintFile(target, file, title);
  if (!trouble || dialogs == nullptr) return;
  dialogs->Message({.Text = trouble->Text,
                    .Title = "Print",
                    .Symbol = Icon::Exclamation,
                    .Choice = Buttons::Ok,
                    .Details = trouble->Details});
}

std::string QtDesktop::ShortDate() const {
  const QDate today = QDate::currentDate();
  const QString local = QLocale::system().toString(today, QLocale::ShortFormat);
  const std::string date = FromQt(local);
  // Some scripts' digits are not in the radio's alphabet.
  const bool whole = static_cast<qsizetype>(date.size()) == local.size();
  return whole ? date : FromQt(today.toString(Qt::ISODate));
}

double QtDesktop::ScreenWidth() const {
  return QGuiApplication::primaryScreen()->availableGeometry().width() * twipsPerPixel;
}

double QtDesktop::ScreenHeight() const {
  return QGuiApplication::primaryScreen()->availableGeometry().height() * twipsPerPixel;
}

std::optional<std::string> FolderTrouble() {
  if (!UserFolder(configVariable, configFallback).empty() &&
      !UserFolder(dataVariable, dataFallback).empty()) {
    return std::nullopt;
  }
  return "There is no home folder to keep files in. Set HOME, or XDG_CONFIG_HOME and "
         "XDG_DATA_HOME.";
}

std::filesystem::path ConfigFolder() { return UserFolder(configVariable, configFallback); }

std::filesystem::path QtProgramFiles::Shipped() const {
  const std::filesystem::path program =
      QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
  const auto installed = program.parent_path() / "share" / programFolder;
  std::error_code ignored;
  return std::filesystem::is_directory(installed, ignored) ? installed
                                                           : program / "share" / programFolder;
}

std::filesystem::path QtProgramFiles::Data() const {
  return UserFolder(dataVariable, dataFallback);
}

std::error_code QtProgramFiles::Settle(const std::filesystem::path& fileOrFolder) const {
  const int handle = open(fileOrFolder.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (handle < 0) return {errno, std::generic_category()};
  std::error_code error;
  // Some file systems can't do it for folders, and need not.
  if (fsync(handle) != 0 && errno != EINVAL) error = {errno, std::generic_category()};
  close(handle);
  return error;
}

}  // namespace quillmark
