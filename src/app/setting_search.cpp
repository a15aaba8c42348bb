#include "app/setting_search.h"

#include <algorithm>
#include <optional>
#include <string>

#include "text/text.h"

namespace quillmark {

namespace {

// How well a row fits a query, the best first.
enum Rank { named, inName, inValue, inExplanation };

std::vector<std::string> WordsOf(std::string_view query) {
  std::vector<std::string> words;
  for (query = Trim(query); !query.empty(); query = Trim(query)) {
    const std::string_view word = query.substr(0, query.find(' '));
    words.emplace_back(word);
    query.remove_prefix(word.size());
  }
  return words;
}

bool HoldsAll(const std::string& text, const std::vector<std::string>& words) {
  return std::ranges::all_of(words,
                             [&](const std::string& word) { return FindAnyCase(text, word) > 0; });
}

// The captions of both windows, and the word.
std::string NamesOf(const Setting& setting) {
  std::string names = std::string(setting.View.Caption) + "\n" + setting.Word + "\n";
  if (setting.Restored) names += setting.Restored->Caption;
  return names;
}

std::string ExplanationOf(const Setting& setting) {
  if (!setting.Manual) return "";
  const char* newer = setting.Manual->TextFrom200;
  return std::string(setting.Manual->Title) + "\n" + setting.Manual->Text + "\n" +
         (newer == nullptr ? "" : newer);
}

std::optional<Rank> RankOf(const SettingRow& row, std::string_view query,
                           const std::vector<std::string>& words) {
  const Setting& setting = row.What;
  if (EqualAnyCase(setting.Word, query) || FindAnyCase(setting.View.Caption, query) == 1) {
    return named;
  }
  std::string text = NamesOf(setting);
  if (HoldsAll(text, words)) return inName;
  text += "\n" + row.Text();
  if (HoldsAll(text, words)) return inValue;
  text += "\n" + ExplanationOf(setting);
  if (HoldsAll(text, words)) return inExplanation;
  return std::nullopt;
}

}  // namespace

std::vector<FoundRow> FindRows(SettingsRows& rows, std::string_view query) {
  query = Trim(query);
  const std::vector<std::string> words = WordsOf(query);
  if (words.empty()) return {};
  struct Ranked {
    Rank At;
    SettingRow* Row;
  };
  std::vector<Ranked> ranked;
  for (SettingRow& row : rows.Rows) {
    if (!row.Visible()) continue;
    if (const auto rank = RankOf(row, query, words)) ranked.push_back({*rank, &row});
  }
  std::ranges::stable_sort(ranked, {}, &Ranked::At);
  std::vector<FoundRow> found;
  found.reserve(ranked.size());
  for (const Ranked& each : ranked) found.push_back({each.Row, each.At == inExplanation});
  return found;
}

std::string NameAndTab(const SettingsRows& rows, const SettingRow& row) {
  const auto tab = static_cast<std::size_t>(row.What.View.On);
  const std::string place =
      tab < FirstTab ? rows.InfoFrame.Text() : rows.SettingsTab.Tabs[tab - FirstTab];
  return std::string(row.What.View.Caption) + ", " + place;
}

}  // namespace quillmark
