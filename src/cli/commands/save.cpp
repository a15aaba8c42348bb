#include "cli/commands/save.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <system_error>

#include "cli/config_file.h"
#include "cli/json.h"
#include "config/replaced_file.h"
#include "platform/utilities.h"
#include "text/path_text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

struct SaveOptions {
  std::string File;
  bool Yes = false;
};

// A file that is gone at the end, unless it was moved away.
class PartOfFile {
 public:
  explicit PartOfFile(const fs::path& target)
      : path(target.parent_path() /
             ("." + target.filename().string() + "." + std::to_string(getpid()))) {}
  ~PartOfFile() {
    std::error_code ignored;
    fs::remove(path, ignored);
  }
  PartOfFile(const PartOfFile&) = delete;
  PartOfFile& operator=(const PartOfFile&) = delete;

  const fs::path& Path() const { return path; }

 private:
  fs::path path;
};

void CheckTarget(Workbench& bench, const fs::path& target, bool yes) {
  std::error_code failure;
  const auto status = fs::status(target, failure);
  if (!fs::exists(status)) return;
  const std::string name = PathText(target);
  if (!fs::is_regular_file(status)) throw Failure{Exit::BadFile, name + " is no plain file."};
  if (yes) return;
  if (Workbench::CanAsk() && bench.Ask("Replace " + target.string() + "?")) return;
  throw Failure{Exit::Usage, name + " is there already.", "\"--yes\" replaces it."};
}

void Move(const fs::path& part, const fs::path& target) {
  try {
    MoveOver(part, target);
  } catch (const FileError& error) {
    throw Failure{Exit::BadFile, PathText(target) + " could not be written: " + error.what() + "."};
  }
}

void SaveTo(CliConsole& radio, CliMachine& machine, const fs::path& part) {
  const auto trouble = std::make_shared<std::string>();
  machine.Boxes.Choose(part);
  machine.Boxes.Expect("File Error", "was not saved", [trouble](const MessageBox& box) {
    *trouble = box.Text;
    return Answer::Ok;
  });
  radio.Connect();
  radio.Click(radio.Main().cmdSaveToFile);
  if (!trouble->empty()) throw Failure{Exit::BadFile, *trouble};
  radio.CheckBoxes();
  if (radio.Logic().Saver().WrittenTo == part) return;
  throw Failure{Exit::NoRadio, "The configuration was not saved: the radio did not answer to all."};
}

Exit Save(Workbench& bench, const SaveOptions& options) {
  // Behind a link stands the file that is meant.
  std::error_code ignored;
  const fs::path target = fs::weakly_canonical(fs::absolute(options.File), ignored);
  CheckTarget(bench, target, options.Yes);
  const PartOfFile part(target);
  SaveTo(bench.Radio(), bench.Machine(), part.Path());
  const auto settings = ValuesOf(ConfigurationIn(part.Path())).size();
  Move(part.Path(), target);
  if (bench.Options.Json) {
    bench.Out.Line(JsonObject()
                       .Add("version", "1")
                       .Add("file", JsonText(PathText(target)))
                       .Add("settings", std::to_string(settings))
                       .Text());
  }
  return Exit::Done;
}

}  // namespace

void AddSave(CLI::App& app, Action& chosen) {
  const auto options = std::make_shared<SaveOptions>();
  CLI::App* command = app.add_subcommand("save", "Save the radio's configuration to a file");
  command->add_option("FILE", options->File, "the file; it is there whole, or not at all")
      ->required();
  command->add_flag("--yes", options->Yes, "replace a file that is there");
  command->callback([&chosen, options] {
    chosen = [options](Workbench& bench) { return Save(bench, *options); };
  });
}

}  // namespace quillmark
