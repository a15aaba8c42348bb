#pragma once

#include <string>
#include <string_view>

#include "catalogue/setting.h"

namespace quillmark {

// What a radio takes of a setting, in words, and whether a value is one of these. The radio alone
// decides: nothing is held back because of what stands here. Texts are single-byte.
//
// An unknown revision counts as one that has the setting, and as the one that takes more. A mode
// that is not known ("", "n/a") is not judged.

// What is wrong with a value, or with setting it at this radio.
struct Verdict {
  std::string About;     // "PWR 45", or "HOPTIME" when it is not the value that is wrong
  std::string Wrong;     // "radios take 20 to 30 dBm"; empty: nothing
  bool OfValue = false;  // it is the value that is wrong, and no radio takes it

  bool Fine() const { return Wrong.empty(); }
  // "PWR 45: radios take 20 to 30 dBm"; empty when nothing is wrong.
  std::string Sentence() const { return Fine() ? "" : About + ": " + Wrong; }
};

// "20 to 30 dBm", "1 to 1440 minutes or NONE", "M, R or X". Empty for what can't be programmed.
std::string TakenValues(const Setting& setting, const Revision& revision);

// The same as sentences for the user who is about to type a value: what radios take, the factory
// value, which mode and which revisions have it.
std::string HintOf(const Setting& setting, const Revision& revision);

// `value` is what stands behind the setting's word and one blank; `modeText` is that of the mode
// row, such as "MODE M". The verdict shows at most 40 characters of the value.
Verdict Judge(const Setting& setting, std::string_view value, const Revision& revision,
              std::string_view modeText);

// `command` is the whole line that is to set it, as it is sent: one that begins with another word
// is wrong.
Verdict JudgeCommand(const Setting& setting, std::string_view command, const Revision& revision,
                     std::string_view modeText);

}  // namespace quillmark
