#include "cli/config_file.h"

#include "cli/exit_codes.h"
#include "cli/json.h"
#include "config/config_lines.h"
#include "platform/utilities.h"
#include "text/path_text.h"

namespace quillmark {

std::vector<std::string> ConfigurationIn(const std::filesystem::path& file) {
  const std::string name = PathText(file);
  if (!FileExists(file)) throw Failure{Exit::BadFile, name + " not found."};
  ConfigText text = ReadConfigText(file, MostConfigLines);
  if (!text.Refusal.empty()) throw Failure{Exit::BadFile, name + ": " + text.Refusal};
  if (ValuesOf(text.Lines).empty()) {
    throw Failure{Exit::BadFile, name + " is no configuration of a radio: it sets nothing."};
  }
  return text.Lines;
}

std::string JsonOf(const std::vector<ComparedValue>& rows) {
  const auto line = [](const std::string& text) {
    return text.empty() ? std::string("null") : JsonText(text);
  };
  JsonObject settings;
  bool same = true;
  for (const ComparedValue& row : rows) {
    same = same && row.Same;
    settings.Add(row.What->Word, JsonObject()
                                     .Add("a", line(row.First))
                                     .Add("b", line(row.Second))
                                     .Add("same", JsonBool(row.Same))
                                     .Text());
  }
  return JsonObject()
      .Add("version", "1")
      .Add("same", JsonBool(same))
      .Add("settings", settings.Text())
      .Text();
}

}  // namespace quillmark
