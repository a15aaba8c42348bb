#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "controls/table.h"
#include "history/copy_store.h"
#include "platform/desktop.h"

namespace quillmark {

// A radio of which there are copies, as the window of the history lists it.
struct ListedRadio {
  std::string Folder;                        // its serial number
  std::vector<std::filesystem::path> Files;  // newest first
  TableRow Row;  // serial number, unit address, owner's name, time of the newest copy
};

// All radios that have files, in the order of their numbers. Address and name are those of the
// newest sound copy.
std::vector<ListedRadio> ListRadios(const CopyStore& store, const Desktop& desktop);

}  // namespace quillmark
