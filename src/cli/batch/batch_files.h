#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

// What each radio of a batch is programmed with.
class BatchFiles {
 public:
  // `source` is a file for all, or a folder with <serial>.txt or unit-<unit>.txt for each. `table`
  // is a CSV file whose first row names its columns, one of them "serial" or "unit"; empty: none.
  // Throws Failure when they can't be used.
  BatchFiles(std::filesystem::path source, std::filesystem::path table);

  // The lines for one radio.
  struct Filled {
    std::vector<std::string> Lines;  // Latin-1
    bool UnitIsMeant;                // the unit number in them was written for this very radio
  };
  // The file for that radio with the radio's row of the table filled in: ${column}, with ${serial}
  // and ${unit} of the radio itself where the table does not have them. Reads the files anew.
  // Throws Failure, whose texts show no value.
  Filled For(const std::string& serial, const std::string& unit) const;

 private:
  const std::filesystem::path source;
  const std::filesystem::path table;
};

}  // namespace quillmark
