#pragma once

#include <span>

#include "app/settings_rows.h"

namespace quillmark::attack {

// Which row of the main window shows the reply to which word.
struct ShownRow {
  const char* Name;
  const char* Word;
  SettingRow SettingsRows::*Row;
};

std::span<const ShownRow> ShownRowTable();

}  // namespace quillmark::attack
