#pragma once

#include <string>
#include <vector>

namespace quillmark {

// A reader of stdout that has gone: nobody wants the rest.
struct ReaderGone {};

// What a command prints: stdout takes the result alone. Texts are UTF-8.
class Printer {
 public:
  // A line, at once: throws ReaderGone when nobody reads any more, and Failure when it can't be
  // written for another reason.
  void Line(const std::string& text) const;
  // The rows of a table in columns as wide as their longest text, cut off behind the last one. The
  // first row holds the headings.
  void Table(const std::vector<std::vector<std::string>>& rows) const;
};

// "a,b,c", with quotes where a field needs them.
std::string CsvLine(const std::vector<std::string>& fields);

}  // namespace quillmark
