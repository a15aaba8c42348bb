#include "qt/desktop/qt_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QDesktopServices>
#include <QLocale>
#include <QScreen>
#include <QSysInfo>
#include <QUrl>
#include <fstream>
#include <sstream>

#include "qt/base/local_date.h"
#include "qt/desktop/form_size.h"
#include "qt/desktop/printed_report.h"
#include "qt/desktop/printing.h"
#include "qt/text/latin1.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

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

std::string QtDesktop::ShortDate() const { return LocalShortDate(); }

std::string QtDesktop::DateAndTime(std::int64_t utcSeconds) const {
  return LocalDateAndTime(utcSeconds);
}

double QtDesktop::ScreenWidth() const {
  return QGuiApplication::primaryScreen()->availableGeometry().width() * twipsPerPixel;
}

double QtDesktop::ScreenHeight() const {
  return QGuiApplication::primaryScreen()->availableGeometry().height() * twipsPerPixel;
}

}  // namespace quillmark
