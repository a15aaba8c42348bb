#pragma once

#include <QString>
#include <string>
#include <vector>

class QPagedPaintDevice;

namespace quillmark {

// A text as it stands on paper: pages in fixed width under its title, with the date and page
// numbers. Made for one print and dropped after it.
class PrintedReport {
 public:
  // `text` is single-byte; its lines end with CR LF, CR or LF. Empty lines at its
  // beginning and end are left out.
  PrintedReport(std::string text, QString title, QString date);

  const QString& Title() const { return title; }
  // Paints the pages on paper or into a PDF, with the margins and the size that the device has.
  // False when the device fails.
  bool Paint(QPagedPaintDevice& device) const;

  // The lines for paper of so many columns (at least 8). A longer line goes on below, indented, and
  // is broken at a blank where there is one; control characters are left out.
  std::vector<QString> Lines(int columns) const;

 private:
  std::string text;
  QString title;
  QString date;
};

}  // namespace quillmark
