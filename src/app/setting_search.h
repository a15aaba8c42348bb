#pragma once

#include <string_view>
#include <vector>

#include "app/settings_rows.h"

namespace quillmark {

// A row of the main window that has been looked for.
struct FoundRow {
  SettingRow* Row;      // as long-lived as its window
  bool ByText = false;  // only the setting's explanation holds what was looked for
};

// The visible rows that hold all words of `query`, in whatever case, in their captions, their
// words, their values or their explanations. Those whose caption begins with it or whose word it is
// come first, then other captions and words, then values, then explanations; else they stand in the
// order of the catalogue. None for an empty query.
std::vector<FoundRow> FindRows(SettingsRows& rows, std::string_view query);

// What a row is called in a sentence: "Power Level, Radio Settings 1".
std::string NameAndTab(const SettingsRows& rows, const SettingRow& row);

}  // namespace quillmark
