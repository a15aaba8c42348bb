#include "restore/restore_save.h"

#include <memory>
#include <utility>

#include "app/version.h"
#include "config/save_outcome.h"
#include "config/suggested_name.h"
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

RestoreSaver::RestoreSaver(Platform& machine, Session& shared, frmOrvalent& mainWindow,
                           RestoreControls& itsControls, RestoreLink& itsLink, Form& itsWindow)
    : platform(machine),
      session(shared),
      main(mainWindow),
      controls(itsControls),
      link(itsLink),
      window(itsWindow) {}

std::optional<std::filesystem::path> RestoreSaver::ChooseFile() {
  const SettingRow& serial = main.At(SettingId::SerialNumber);
  return ChooseToSave(
      platform, FileKind::Configuration,
      {.Title = "Radio Configuration Save",
       .Filter = "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*",
       .Name = SuggestedName(serial.Stale() ? "" : serial.Text(), platform.Events.LocalSeconds())});
}

void RestoreSaver::Write(const std::filesystem::path& path) {
  Tell("");
  const std::vector<std::string> settings = Settings();
  ReplacedFile file(path, platform.Files.Data());
  try {
    WriteHead(file);
  } catch (const SerialError&) {
    Tell(InterruptedSentence(0, settings.size(), path, file.EndEarly()));
    throw;
  }
  for (const std::string& lines : settings) file.Line(lines);
  file.Complete();
  Tell(SavedSentence(settings.size(), path));
  NoteConfiguration(platform.Preferences, path);
}

std::vector<std::string> RestoreSaver::Settings() {
  const bool master = Find(controls.ModeText(), "M", 2) != 0;
  std::vector<std::string> settings;
  for (const RestoreRowControls* row : controls.ReadOrder()) {
    std::string joined;
    for (const std::string& line :
         RestoreLines(row->Row, row->Current.Text(), session.SoftwareRevision, master)) {
      joined += (joined.empty() ? "" : "\r\n") + line;
    }
    if (!joined.empty()) settings.push_back(std::move(joined));
  }
  return settings;
}

// The window may close as soon as the save is over.
void RestoreSaver::Tell(const std::string& sentence) {
  controls.lblOutcome.Text = sentence;
  if (sentence.empty()) {
    main.FileDone.Drop();
  } else {
    main.FileDone.Tell(sentence);
  }
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
