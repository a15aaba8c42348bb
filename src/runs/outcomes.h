#pragma once

#include <functional>
#include <string>
#include <vector>

#include "runs/sent_settings.h"

namespace quillmark {

// What has become of a setting that was sent.
enum class Outcome {
  Refused,   // the radio has said so
  Differs,   // it shows another value
  NoAnswer,  // it has not said anything, and its value can't be read
  NotSent,   // the act ended before
  Taken
};

struct JudgedSetting {
  const Setting* What = nullptr;
  Outcome Came = Outcome::Taken;
  std::string Name{};     // as in "PWR"
  std::string Before{};   // what the radio had; empty: not known
  std::string Sent{};     // the value, or what was to be sent
  std::string Has{};      // what the radio shows; empty: not read
  std::string Refusal{};  // the radio's words
};

// What a read has just brought for a setting; empty when it brought nothing, or there is no value.
using RadioValue = std::function<std::string(SettingId)>;

// Judges each setting by what the radio has answered and what it shows. A setting that the radio
// does not have is left out when it was sent the value of such a radio, as the default set does;
// the only setting of an act is not.
std::vector<JudgedSetting> JudgeSettings(const SentSettings& sent, const RadioValue& valueOf);

// In one sentence: "31 of 33 settings taken; refused: PWR, OWM".
std::string SentenceOf(const std::vector<JudgedSetting>& judged);
// How far an act came whose link has ended: "17 of 33 settings sent; the link was lost".
std::string SentenceSoFar(const SentSettings& sent, bool letGo);
// For the row of a setting that was refused or differs: "Sent PWR 45; the radio has PWR 30 dBm:
// INVALID ENTRY". Empty for the others.
std::string MarkOf(const JudgedSetting& judged);
// All of them as a table in fixed width, lines end with CR LF; what was not taken stands first. The
// column of what the radio had before is left out when that is known of none.
std::string TableOf(const std::vector<JudgedSetting>& judged);

}  // namespace quillmark
