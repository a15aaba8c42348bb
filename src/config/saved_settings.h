#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillmark {

// The settings of a saved configuration, in the order of its lines: what is asked of the radio and
// how a line is cut out of the reply, whose own wording is what is stored.
struct SavedSetting {
  enum class Cut {
    Tail,       // from the word to the reply's last three characters
    Owner,      // the whole text behind the command
    SixWide,    // at most 6 characters from the word
    TenWide,    // at most 10 characters from the word
    AlarmMask,  // "MASK: x" becomes "AMASK x"
    NoColon,    // the tail without its colon
    Dlink,      // up to the last blank, and a line for on or off
  };

  const char* Command;
  const char* Panel;  // text of the status panel; null leaves it
  const char* Word;   // looked for in the reply; null: none
  Cut Way = Cut::Tail;
  bool MasterOnly = false;
  bool Dot = true;                    // in the terminal
  const char* NotWith = nullptr;      // a reply that holds this gives no line
  const char* LineWithout = nullptr;  // the line for a reply without the word
  int Since = 0;                      // the first revision that has it; 0: all have
};

std::span<const SavedSetting> SavedSettings();

// What the reply gives for the file: nothing when it lacks the word; else one line, or two joined
// by CR LF. Throws RunFailed when the cut can't be made.
std::optional<std::string> CutSetting(const SavedSetting& row, const std::string& reply);

}  // namespace quillmark
