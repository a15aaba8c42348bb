#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/settings.h"

namespace quillmark {

// A row of the store and restore window, made from its setting's row of the catalogue: what it
// shows, where, for which revisions, and how its text becomes a command or a line of a file. The
// window and all that it does run over these rows.
struct RestoreRow {
  // Of a setting that can be restored, which outlives the row.
  explicit RestoreRow(const Setting& setting);

  const Setting* What;
  SettingId Id;
  const char* Check;
  const char* Caption;
  const char* Current;
  std::string New;
  const char* Word;  // reads the setting
  std::size_t Page;  // from 0
  double Top;        // twips from the top of the page
  RevisionGate Shown;
  RevisionGate Read;
  RevisionGate Loaded;
  RestoreFollows Mode;
  RestoreForm Text;

  // What the row is about: "Power Level".
  std::string Subject() const;
};

// In the order in which they are programmed. `settings` outlives the rows.
std::vector<RestoreRow> RestoreRows(std::span<const Setting> settings = AllSettings());

// What a field without a value shows.
inline constexpr const char* NoValue = "n/a";

// How a row's value in the radio stands to that of the file.
enum class RestoreMatch {
  Missing,  // one of them is not there
  Equal,    // they mean the same
  Differs
};
RestoreMatch MatchOf(const RestoreRow& row, std::string_view current, std::string_view next);

}  // namespace quillmark
