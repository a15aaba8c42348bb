#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmark {

// The rows of a table whose columns are separated by commas, or by semicolons if its first row has
// no comma. A field in quotes may hold separators, line ends and doubled quotes. Empty rows and a
// byte-order mark are left out.
std::vector<std::vector<std::string>> CsvRows(std::string_view text);

}  // namespace quillmark
