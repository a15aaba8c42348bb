#pragma once

#include <QPrinter>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/dialogs.h"

namespace quillmark {

class PrintedReport;

// Printers and PDF files, for the printer dialog and the desktop.

// Whether this machine has a printer at all.
bool HasPrinter();
// The default printer, set up to print that file.
std::shared_ptr<QPrinter> PrinterFor(const std::filesystem::path& file);
// What was chosen at that printer: paper, or a PDF file.
PrintTarget TargetOf(const std::shared_ptr<QPrinter>& printer);
// The name that a PDF of that file is offered under: its own name, in the user's documents
// or, without such a folder, at home.
std::filesystem::path SuggestedPdf(const std::filesystem::path& file);

// What went wrong, for the user.
struct PrintTrouble {
  std::string Text;
  std::string Details;
};
// Prints. Nothing when all went well. A PDF that fails leaves the file of that name as it was.
std::optional<PrintTrouble> PrintReport(const PrintedReport& report, const PrintTarget& target);

}  // namespace quillmark
