#include "restore/restore_save.h"

#include <memory>

#include "app/version.h"
#include "conversation/reply.h"
#include "firmware/frmProgram.h"
#include "session/chosen_files.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int progressPause = 200;  // ms
constexpr int progressSteps = 10;

std::vector<std::string> SwitchedLines(const RestoreRow& row, const std::string& text) {
  const std::string word = Upper(row.Word);
  std::vector<std::string> lines;
  const auto blank = static_cast<std::ptrdiff_t>(Find(text, " "));
  const auto bracket = static_cast<std::ptrdiff_t>(Find(text, "("));
  const auto start = static_cast<std::ptrdiff_t>(word.size()) + 2;
  if (bracket != 0) {
    const auto value = Mid(text, start, bracket - 1 - (blank + 1));
    if (value) lines.push_back(word + " " + *value);
  }
  lines.push_back(word + (Holds(text, "ON") ? " ON" : " OFF"));
  return lines;
}

std::string LastNine(const std::string& text) {
  constexpr std::size_t length = 9;
  return text.size() <= length ? text : text.substr(text.size() - length);
}

bool IsSaved(const RestoreRow& row, const std::string& text, const Revision& revision,
             bool master) {
  if (Contains(text, "NOT AVAILABLE") || Contains(text, NoValue)) return false;
  const SettingRestored& restored = *row.What->Restored;
  if (restored.NotSavedWith != nullptr && Holds(text, restored.NotSavedWith)) return false;
  return row.Shown.HoldsIfUnknown(revision) && (master || !restored.SavedAtMasterOnly);
}

}  // namespace

std::vector<std::string> RestoreLines(const RestoreRow& row, const std::string& text,
                                      const Revision& revision, bool master) {
  if (!IsSaved(row, text, revision, master)) return {};
  switch (row.Text) {
    case RestoreForm::Owner:
      return {Upper(row.Word) + " " + text};
    case RestoreForm::AlarmMask:
      return {"AMASK " + LastNine(text)};
    case RestoreForm::Switched:
      return SwitchedLines(row, text);
    case RestoreForm::Line:
    case RestoreForm::AlarmSense:
      break;
  }
  return {text};
}

RestoreSaver::RestoreSaver(Platform& machine, Session& shared, RestoreControls& itsControls,
                           RestoreLink& itsLink, Form& itsWindow)
    : platform(machine), session(shared), controls(itsControls), link(itsLink), window(itsWindow) {}

std::optional<std::filesystem::path> RestoreSaver::ChooseFile() {
  return ChooseToSave(platform, FileKind::Configuration,
                      {"Radio Configuration Save", "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*"});
}

void RestoreSaver::Write(const std::filesystem::path& path) {
  ReplacedFile file(path, platform.Files.Data());
  WriteHead(file);
  const bool master = Find(controls.ModeText(), "M", 2) != 0;
  for (const RestoreRowControls* row : controls.ReadOrder()) {
    for (const std::string& line :
         RestoreLines(row->Row, row->Current.Text(), session.SoftwareRevision, master)) {
      file.Line(line);
    }
  }
  file.Complete();
  NoteConfiguration(platform.Preferences, path);
}

void RestoreSaver::WriteHead(ReplacedFile& file) {
  file.Line(std::string("Created by Kelvor Quillmark Configuration Software Version ") +
            VersionText);
  file.Line("On " + platform.Desktop.ShortDate());
  const auto ask = [&](const Conversation::Question& question, const std::string& head) {
    const auto value = link.Ask(question, [&file] {
      file.Abandon();
      return std::string(
          "The configuration was not saved. A file of that name is what it was before.");
    });
    if (value && !IsRefusal(*value)) file.Line(head + *value);
  };
  ask({.Command = "ser", .Opening = "SN"}, "From Radio, serial number: ");
  ask({.Command = "srev", .Opening = "77-", .ManyLines = true}, "With Firmware Version: \r\n");
  file.Line("\r\n");
}

void RestoreSaver::ShowSaved() {
  window.Visible = false;
  const auto progress = std::make_shared<frmProgram>(platform, session);
  progress->ProgressBar1.Value = 0;
  progress->Caption = "Saving...";
  progress->Command1.Enabled = false;
  progress->Show();
  link.Sleep(progressPause);
  for (int i = 0; i < progressSteps; ++i) {
    progress->Label1.Text = "Saving Configuration File...";
    progress->ProgressBar1.Value = i * 10;
    platform.Events.Pump();
    link.Sleep(progressPause);
  }
  progress->Stop();
  if (!window.Loaded()) return;
  window.Visible = true;
  window.SetFocus();
}

}  // namespace quillmark
