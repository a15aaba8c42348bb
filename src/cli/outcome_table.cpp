#include "cli/outcome_table.h"

#include <algorithm>

#include "cli/json.h"
#include "cli/utf8.h"
#include "text/text.h"

namespace quillmark {

namespace {

const char* NameOf(Outcome came) {
  switch (came) {
    case Outcome::Refused:
      return "refused";
    case Outcome::Differs:
      return "differs";
    case Outcome::NoAnswer:
      return "no answer";
    case Outcome::NotSent:
      return "not sent";
    case Outcome::Taken:
      break;
  }
  return "taken";
}

std::string OrNull(const std::string& text) { return text.empty() ? "null" : JsonText(text); }

std::string JsonOf(const std::vector<JudgedSetting>& judged) {
  JsonObject settings;
  for (const JudgedSetting& each : judged) {
    settings.Add(each.What->Word, JsonObject()
                                      .Add("sent", JsonText(each.Sent))
                                      .Add("has", OrNull(each.Has))
                                      .Add("outcome", JsonText(NameOf(each.Came)))
                                      .Add("refusal", OrNull(each.Refusal))
                                      .Text());
  }
  return JsonObject().Add("version", "1").Add("settings", settings.Text()).Text();
}

void PrintTable(Workbench& bench, const std::vector<JudgedSetting>& judged) {
  std::string table = TableOf(judged);
  std::erase(table, '\r');
  while (table.ends_with('\n')) table.pop_back();
  bench.Out.Line(ToUtf8(table));
}

bool Any(const std::vector<JudgedSetting>& judged, Outcome came) {
  return std::ranges::find(judged, came, &JudgedSetting::Came) != judged.end();
}

}  // namespace

std::vector<JudgedSetting> JudgeLastSent(frmOrvalent& main) {
  return JudgeSettings(main.Sent, [&main](SettingId id) {
    const SettingRow& row = main.At(id);
    return row.CameLast && row.Visible() ? row.Text() : std::string();
  });
}

Exit TellOutcome(Workbench& bench, const std::vector<JudgedSetting>& judged) {
  if (bench.Options.Json) {
    bench.Out.Line(JsonOf(judged));
  } else {
    PrintTable(bench, judged);
  }
  const auto denied = [](const JudgedSetting& each) { return Contains(each.Refusal, "DENIED"); };
  if (std::ranges::any_of(judged, denied)) {
    throw Failure{Exit::Denied, SentenceOf(judged) + "."};
  }
  if (bench.Radio().Overwriting() && Any(judged, Outcome::NotSent)) {
    throw bench.Radio().CutShort(SentenceOf(judged) + ".");
  }
  const bool all = std::ranges::all_of(
      judged, [](const JudgedSetting& each) { return each.Came == Outcome::Taken; });
  if (!all) throw Failure{Exit::Different, SentenceOf(judged) + "."};
  return Exit::Done;
}

}  // namespace quillmark
