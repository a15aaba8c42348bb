#include "qt/desktop/printing.h"

#include <langinfo.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPdfWriter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <cstdint>

#include "qt/desktop/printed_report.h"
#include "qt/text/latin1.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

constexpr QMarginsF margins{20, 16, 16, 14};  // mm; the left one leaves room for a punch
constexpr int pdfResolution = 600;            // dots per inch

QString NameOf(const std::filesystem::path& path) {
  return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

// The C library knows the paper of a country. Qt knows only whether it measures in inches.
QPageSize UsualPaper() {
  const auto height =
      static_cast<int>(reinterpret_cast<std::intptr_t>(nl_langinfo(_NL_PAPER_HEIGHT)));
  constexpr int letterHeight = 279;  // mm
  return QPageSize(height == letterHeight ? QPageSize::Letter : QPageSize::A4);
}

QPageLayout UsualPage() {
  return QPageLayout(UsualPaper(), QPageLayout::Portrait, margins, QPageLayout::Millimeter);
}

std::optional<QByteArray> PdfOf(const PrintedReport& report, const QPageLayout& page) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setResolution(pdfResolution);
  pdf.setPageLayout(page);
  pdf.setTitle(report.Title());
  pdf.setCreator(QCoreApplication::applicationName());
  if (!report.Paint(pdf)) return std::nullopt;
  return bytes;
}

// Whole or not at all: a full disk must not leave half a report under the name.
std::optional<std::string> Save(const QByteArray& bytes, const std::filesystem::path& path) {
  std::error_code ignored;
  const auto status = std::filesystem::status(path, ignored);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    return "There is something of that name that is not a plain file.";
  }
  QSaveFile file(NameOf(path));
  if (!file.open(QIODevice::WriteOnly)) return FromQt(file.errorString());
  if (file.write(bytes) != bytes.size() || !file.flush()) {
    const std::string reason = FromQt(file.errorString());
    file.cancelWriting();
    return reason;
  }
  if (!file.commit()) return FromQt(file.errorString());
  return std::nullopt;
}

std::optional<PrintTrouble> WritePdf(const PrintedReport& report, const std::filesystem::path& path,
                                     const QPageLayout& page) {
  const std::string text = PathText(path) + " could not be written.";
  const auto bytes = PdfOf(report, page);
  if (!bytes) return PrintTrouble{text, "The pages could not be made."};
  if (const auto reason = Save(*bytes, path)) return PrintTrouble{text, *reason};
  return std::nullopt;
}

std::optional<PrintTrouble> PrintOnPaper(const PrintedReport& report, QPrinter& printer) {
  const std::string name = FromQt(printer.printerName());
  if (QPrinterInfo::printerInfo(printer.printerName()).isNull()) {
    return PrintTrouble{"The printer " + name + " is not there any more.", ""};
  }
  printer.setPageMargins(margins, QPageLayout::Millimeter);
  if (!report.Paint(printer) || printer.printerState() == QPrinter::Error) {
    return PrintTrouble{"The report could not be printed on " + name + ".", ""};
  }
  return std::nullopt;
}

}  // namespace

bool HasPrinter() { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

std::shared_ptr<QPrinter> PrinterFor(const std::filesystem::path& file) {
  const QPrinterInfo usual = QPrinterInfo::defaultPrinter();
  auto printer = usual.isNull() ? std::make_shared<QPrinter>(QPrinter::HighResolution)
                                : std::make_shared<QPrinter>(usual, QPrinter::HighResolution);
  printer->setDocName(NameOf(file.filename()));
  return printer;
}

PrintTarget TargetOf(const std::shared_ptr<QPrinter>& printer) {
  PrintTarget target{FromQt(printer->printerName()), {}, printer};
  if (printer->outputFormat() == QPrinter::PdfFormat) {
    target.Printer.clear();
    target.PdfFile = QFile::encodeName(printer->outputFileName()).toStdString();
  }
  return target;
}

std::filesystem::path SuggestedPdf(const std::filesystem::path& file) {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString chosen = QFileInfo(documents).isDir() ? documents : QDir::homePath();
  const std::filesystem::path folder = QFile::encodeName(chosen).toStdString();
  return folder / file.filename().replace_extension(".pdf");
}

std::optional<PrintTrouble> PrintReport(const PrintedReport& report, const PrintTarget& target) {
  auto* printer = static_cast<QPrinter*>(target.Settings.get());
  if (target.PdfFile.empty()) {
    if (printer == nullptr) return PrintTrouble{"There is no printer.", ""};
    return PrintOnPaper(report, *printer);
  }
  QPageLayout page = UsualPage();
  if (printer != nullptr) {
    page.setPageSize(printer->pageLayout().pageSize());
    page.setOrientation(printer->pageLayout().orientation());
  }
  return WritePdf(report, target.PdfFile, page);
}

}  // namespace quillmark
