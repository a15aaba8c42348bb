#include "config/program_plan.h"

#include <algorithm>

#include "catalogue/same_value.h"
#include "catalogue/settings.h"
#include "config/config_values.h"
#include "config/judged_lines.h"

namespace quillmark {

namespace {

// What a radio or a file holds may be long.
std::string Short(const std::string& text) {
  constexpr std::size_t longest = 60;
  return text.size() <= longest ? text : text.substr(0, longest) + "...";
}

// What goes out and is taken.
std::vector<SentLine> Taken(std::vector<SentLine> sent) {
  std::erase_if(sent, [](const SentLine& line) { return !line.What.Fine(); });
  return sent;
}

bool IsRead(const Setting& setting, const std::string& shown) {
  // The map is read when its window is opened, and never shown in the row.
  if (setting.Id == SettingId::XMAP) return false;
  return IsValue(setting, shown);
}

// What is stale may be the radio's before this one.
std::string ShownNow(const SettingRow& row) {
  return row.Stale() ? row.What.View.Start : row.Text();
}

void Compare(const Setting& setting, const std::string& line, const std::string& shown,
             ProgramPlan& plan) {
  if (!IsRead(setting, shown)) {
    plan.Unread.push_back(Short(line));
  } else if (SameValue(setting, shown, ShownValue(setting, line))) {
    ++plan.Same;
  } else {
    plan.Changes.push_back(Subject(setting) + ": " + Short(shown) + " becomes " + Short(line));
  }
}

std::string Counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

// A heading and the first ones behind what stands there; a box is not to be taller than a screen.
void List(std::string& text, const char* heading, const std::vector<std::string>& entries,
          std::size_t most) {
  if (entries.empty()) return;
  text += (text.empty() ? "" : "\r\n\r\n") + std::string(heading);
  for (std::size_t i = 0; i < std::min(most, entries.size()); ++i) text += "\r\n" + entries[i];
  if (entries.size() > most) text += "\r\nand " + std::to_string(entries.size() - most) + " more";
}

std::string DetailsOf(const ProgramPlan& plan, const std::string& cost) {
  std::string text = cost;
  List(text, "Changes:", plan.Changes, 10);
  List(text, "No value in the last read:", plan.Unread, 4);
  List(text, "Not in this radio:", plan.Unknown, 4);
  List(text, "Not taken by radios:", plan.Refused, 4);
  return text;
}

}  // namespace

ProgramPlan PlanOf(const std::vector<std::string>& defaults, const std::vector<std::string>& lines,
                   frmOrvalent& main, const Revision& revision) {
  std::vector<std::string> all = defaults;
  all.insert(all.end(), lines.begin(), lines.end());
  const bool knowsRevision = !main.At(SettingId::SoftwareRev).Stale();
  const std::string mode = ShownNow(main.At(SettingId::Mode));
  const std::vector<SentLine> sent = SentLines(all, knowsRevision ? revision : Revision{}, mode);
  ProgramPlan plan;
  for (const SentLine& line : sent) {
    if (line.What.Fine() || line.Number <= defaults.size()) continue;
    const JudgedLine judged{line.Number - defaults.size(), line.What};
    (line.What.OfValue ? plan.Refused : plan.Unknown).push_back(judged.Sentence());
  }
  for (const auto& [id, line] : ValuesOf(Taken(sent))) {
    Compare(SettingOf(id), line, ShownNow(main.At(id)), plan);
  }
  return plan;
}

MessageBox QuestionOf(const ProgramPlan& plan, const std::string& cost) {
  std::string text =
      Counted(plan.Changes.size(), "setting of the radio changes", "settings of the radio change") +
      ".\r\n" + Counted(static_cast<std::size_t>(plan.Same), "stays", "stay") + " as they are.\r\n";
  if (!plan.Unread.empty()) {
    text += Counted(plan.Unread.size(), "has", "have") + " no value in the last read.\r\n";
  }
  if (!plan.Unknown.empty()) {
    text += Counted(plan.Unknown.size(), "line sets", "lines set") +
            " what this radio does not have in its mode and revision.\r\n";
  }
  if (!plan.Refused.empty()) {
    text += Counted(plan.Refused.size(), "line holds", "lines hold") +
            " a value that radios do not take.\r\n";
  }
  return {.Text = text + "\r\nProgram the radio?",
          .Title = "What Will Change",
          .Choice = Buttons::YesNo,
          .Details = DetailsOf(plan, cost),
          .Irreversible = true};
}

}  // namespace quillmark
