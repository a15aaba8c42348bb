#include "runs/outcomes.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "catalogue/same_value.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr std::size_t mostNames = 6;

// How an outcome is told in the sentence and in the table.
struct Wording {
  Outcome Came;
  const char* InSentence;
  const char* InTable;
};
constexpr std::array wordings{
    Wording{Outcome::Refused, "refused", "refused"},
    Wording{Outcome::Differs, "different in the radio", "different"},
    Wording{Outcome::NoAnswer, "no answer", "no answer"},
    Wording{Outcome::NotSent, "not sent", "not sent"},
    Wording{Outcome::Taken, "taken", "taken"},
};

const Wording& WordingOf(Outcome came) {
  return *std::ranges::find(wordings, came, &Wording::Came);
}

std::string Shown(const SentValue& value) {
  const bool next = !value.Planned.empty() && value.Refusal.empty();
  return next ? value.Planned.back() : value.Sent.value_or("");
}

std::string SentText(const SentSetting& sent) {
  const std::string first = Shown(sent.Value);
  const std::string second = Shown(sent.Switch);
  return first.empty() || second.empty() ? first + second : first + " " + second;
}

bool Done(const SentSetting& sent) {
  return sent.Value.Planned.empty() && sent.Switch.Planned.empty();
}

// The values that were refused, or all when none was.
bool IsFactory(const SentSetting& sent) {
  const char* const factory = sent.What->Value.Factory;
  const auto is = [&](const SentValue& value) {
    return !value.Sent || HasValueSent(*sent.What, factory, *value.Sent);
  };
  return factory != nullptr && is(sent.Value) && is(sent.Switch);
}

std::string RefusalOf(const SentSetting& sent) {
  return sent.Value.Refusal.empty() ? sent.Switch.Refusal : sent.Value.Refusal;
}

// It lacks the setting, and a radio that lacks it works as if it had this value.
bool NothingLost(const SentSetting& sent) {
  const std::string words = RefusalOf(sent);
  const bool lacking = Contains(words, "INVALID COMMAND") || Contains(words, "SELECTED OPTION");
  return lacking && IsFactory(sent);
}

bool RadioHas(const SentSetting& sent, const std::string& shown) {
  const auto has = [&](const SentValue& value) {
    return !value.Sent || HasValueSent(*sent.What, shown, *value.Sent);
  };
  return has(sent.Value) && has(sent.Switch);
}

bool SaysTaken(const SentSetting& sent) {
  return (sent.Value.Taken || !sent.Value.Sent) && (sent.Switch.Taken || !sent.Switch.Sent);
}

// A read cuts a text at its first ">".
bool CanBeCompared(const SentSetting& sent, const std::string& shown) {
  return !shown.empty() && sent.Value.Sent.value_or("").find('>') == std::string::npos;
}

Outcome OutcomeOf(const SentSetting& sent, const std::string& shown) {
  if (!RefusalOf(sent).empty()) return Outcome::Refused;
  if (!Done(sent)) return Outcome::NotSent;
  if (CanBeCompared(sent, shown)) return RadioHas(sent, shown) ? Outcome::Taken : Outcome::Differs;
  return SaysTaken(sent) ? Outcome::Taken : Outcome::NoAnswer;
}

std::string ListOf(const std::vector<JudgedSetting>& judged, Outcome came) {
  std::string list;
  std::size_t count = 0;
  for (const JudgedSetting& each : judged) {
    if (each.Came != came) continue;
    if (++count <= mostNames) list += (count > 1 ? ", " : "") + each.Name;
  }
  if (count > mostNames) list += " and " + std::to_string(count - mostNames) + " more";
  return list;
}

std::string OneSentence(const JudgedSetting& only) {
  const std::string sent = only.Sent.empty() ? only.Name : only.Name + " " + only.Sent;
  const std::string has = only.Has.empty() ? "" : "; the radio has " + only.Has;
  const std::string told = sent + " " + WordingOf(only.Came).InTable;
  switch (only.Came) {
    case Outcome::Refused:
      return told + ": " + only.Refusal + has;
    case Outcome::Differs:
      return sent + " sent" + has;
    default:
      return sent + (only.Came == Outcome::NoAnswer ? ": no answer" : told.substr(sent.size()));
  }
}

using Cells = std::vector<std::string>;

Cells CellsOf(const JudgedSetting& judged) {
  return {judged.Name,   judged.Before, judged.Sent, judged.Has, WordingOf(judged.Came).InTable,
          judged.Refusal};
}

// Each column as wide as its longest text, and two blanks.
std::string InColumns(const std::vector<Cells>& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const Cells& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  std::string table;
  for (const Cells& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i] + std::string(widths[i] + 2 - row[i].size(), ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    table += line + "\r\n";
  }
  return table;
}

}  // namespace

std::vector<JudgedSetting> JudgeSettings(const SentSettings& sent, const RadioValue& valueOf) {
  std::vector<JudgedSetting> judged;
  for (const auto& [id, setting] : sent.All()) {
    if (sent.All().size() > 1 && NothingLost(setting)) continue;
    const std::string shown = valueOf(id);
    const std::string has = IsNoValue(shown) ? "" : shown;
    judged.push_back({.What = setting.What,
                      .Came = OutcomeOf(setting, has),
                      .Name = Upper(setting.What->Word),
                      .Before = setting.Before,
                      .Sent = SentText(setting),
                      .Has = has,
                      .Refusal = RefusalOf(setting)});
  }
  return judged;
}

std::string SentenceOf(const std::vector<JudgedSetting>& judged) {
  if (judged.size() == 1) return OneSentence(judged.front());
  const auto taken = std::ranges::count(judged, Outcome::Taken, &JudgedSetting::Came);
  std::string text =
      std::to_string(taken) + " of " + std::to_string(judged.size()) + " settings taken";
  for (const Wording& wording : wordings) {
    if (wording.Came == Outcome::Taken) continue;
    const std::string list = ListOf(judged, wording.Came);
    if (!list.empty()) text += std::string("; ") + wording.InSentence + ": " + list;
  }
  return text;
}

std::string SentenceSoFar(const SentSettings& sent, bool letGo) {
  const auto all = sent.All().size();
  const auto done =
      std::ranges::count_if(sent.All(), [](const auto& each) { return Done(each.second); });
  return std::to_string(done) + " of " + std::to_string(all) + " settings sent; " +
         (letGo ? "disconnected before they were read" : "the link was lost");
}

std::string MarkOf(const JudgedSetting& judged) {
  if (judged.Came != Outcome::Refused && judged.Came != Outcome::Differs) return {};
  std::string text = "Sent " + judged.Name + " " + judged.Sent;
  if (!judged.Has.empty()) text += "; the radio has " + judged.Has;
  if (!judged.Refusal.empty()) text += ": " + judged.Refusal;
  return text;
}

std::string TableOf(const std::vector<JudgedSetting>& judged) {
  constexpr std::ptrdiff_t before = 1;
  std::vector<Cells> rows{
      {"Setting", "Before", "Sent", "The radio has", "Outcome", "The radio said"}};
  for (const Wording& wording : wordings) {
    for (const JudgedSetting& each : judged) {
      if (each.Came == wording.Came) rows.push_back(CellsOf(each));
    }
  }
  if (std::ranges::all_of(judged, &std::string::empty, &JudgedSetting::Before)) {
    for (Cells& row : rows) row.erase(row.begin() + before);
  }
  return InColumns(rows);
}

}  // namespace quillmark
