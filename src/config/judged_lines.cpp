#include "config/judged_lines.h"

#include "catalogue/settings.h"
#include "config/config_lines.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::string_view modeWord = "mode ";

// The setting that the radio takes a line for, and the command that sets it.
struct Sent {
  const Setting* What = nullptr;
  std::string Command;
};

Sent SentBy(const std::string& line) {
  if (const auto sense = AlarmSenseValue(line)) {
    const Setting& setting = SettingOf(SettingId::AlarmSense);
    return {&setting, std::string(setting.Word) + " " + *sense};
  }
  for (const Setting& setting : AllSettings()) {
    const std::string head = std::string(setting.Word) + " ";
    if (!setting.Restored || FindAnyCase(line, head) != 1) continue;
    const bool asks = Trim(line).size() < head.size() && setting.Value.Form != ValueForm::Text;
    if (!asks) return {&setting, line};
  }
  return {};
}

}  // namespace

std::string JudgedLine::Sentence() const {
  return "line " + std::to_string(Number) + ": " + What.About + ", " + What.Wrong;
}

std::vector<SentLine> SentLines(const std::vector<std::string>& lines, const Revision& revision,
                                std::string_view modeText) {
  std::vector<SentLine> all;
  std::string mode(modeText);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (IsComment(lines[i])) continue;
    const Sent sent = SentBy(lines[i]);
    if (sent.What == nullptr) continue;
    const Verdict verdict = JudgeCommand(*sent.What, sent.Command, revision, mode);
    if (verdict.Fine() && sent.What->Id == SettingId::Mode) {
      mode = "MODE " + std::string(Trim(sent.Command.substr(modeWord.size())));
    }
    all.push_back({i + 1, lines[i], sent.What, verdict});
  }
  return all;
}

std::vector<JudgedLine> JudgeLines(const std::vector<std::string>& lines, const Revision& revision,
                                   std::string_view modeText) {
  std::vector<JudgedLine> judged;
  for (const SentLine& line : SentLines(lines, revision, modeText)) {
    if (!line.What.Fine()) judged.push_back({line.Number, line.What});
  }
  return judged;
}

}  // namespace quillmark
