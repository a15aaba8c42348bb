#include "restore/restore_program.h"

#include <algorithm>
#include <utility>

#include "conversation/reply.h"
#include "text/at_end.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int commandPause = 50;  // ms

std::string From(const std::string& text, std::ptrdiff_t position) {
  return Mid(text, position, static_cast<std::ptrdiff_t>(text.size())).value_or("");
}

std::vector<std::string> SwitchedCommands(const RestoreRow& row, const std::string& text) {
  const auto bracket = static_cast<std::ptrdiff_t>(Find(text, "("));
  if (bracket == 0) return {text};
  std::vector<std::string> commands;
  if (auto value = Mid(text, 1, bracket - 2)) commands.push_back(std::move(*value));
  commands.push_back(Upper(row.Word) + (Holds(text, "ON") ? " ON" : " OFF"));
  return commands;
}

// What the radio said to a command, if that was not its consent: the first line behind the echo.
// Nothing when the echo has not come.
std::string ObjectionIn(std::string_view received, const std::string& command) {
  constexpr std::size_t longest = 40;
  const std::size_t echo = received.rfind(command + "\r");
  if (echo == std::string_view::npos) return {};
  received.remove_prefix(echo + command.size());
  received.remove_prefix(std::min(received.find_first_not_of("\r\n "), received.size()));
  const std::string_view line = received.substr(0, received.find_first_of("\r\n"));
  const bool consents = Contains(line, "PROGRAMMED OK");
  return consents || PromptAtEnd(line) != PromptKind::None ? ""
                                                           : std::string(line.substr(0, longest));
}

std::string Settings(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " setting" : " settings");
}

// The first ones by name; the marks in the rows show the others.
std::string Listed(const std::vector<std::string>& names) {
  constexpr std::size_t most = 3;
  std::string text;
  for (std::size_t i = 0; i < std::min(most, names.size()); ++i) {
    text += (i == 0 ? "" : ", ") + names[i];
  }
  return names.size() > most ? text + " and " + std::to_string(names.size() - most) + " more"
                             : text;
}

std::string InBrackets(const std::string& words) { return words.empty() ? "" : " (" + words + ")"; }

}  // namespace

std::vector<std::string> RestoreCommands(const RestoreRow& row, const std::string& text) {
  const std::string word = std::string(row.Word) + " ";
  switch (row.Text) {
    case RestoreForm::Owner:
      return {word + text};
    case RestoreForm::AlarmMask:
      return {word + From(text, 6)};
    case RestoreForm::AlarmSense:
      return {word + From(text, 14)};
    case RestoreForm::Switched:
      return SwitchedCommands(row, text);
    case RestoreForm::Line:
      break;
  }
  return {text};
}

RestoreProgrammer::RestoreProgrammer(RestoreControls& itsControls, RestoreLink& itsLink,
                                     SentSettings& sent)
    : controls(itsControls), link(itsLink), record(sent) {}

void RestoreProgrammer::Run() {
  asked = nullptr;
  jobs.clear();
  for (RestoreRowControls& row : controls.Rows) {
    const bool wanted = row.Check.Checked() && row.Shown() && row.New.Text() != NoValue;
    if (wanted) jobs.push_back({&row, row.New.Text()});
  }
  record.Plan(Commands());
  const SentSettings::Listening listening(record);
  const AtEnd told([this] { ShowSent(); });
  for (std::size_t number = 0; number < jobs.size(); ++number) Send(number);
}

std::vector<std::string> RestoreProgrammer::Commands() const {
  std::vector<std::string> all;
  for (const Job& job : jobs) {
    for (std::string& command : RestoreCommands(job.Row->Row, job.Text)) {
      all.push_back(std::move(command));
    }
  }
  return all;
}

// The text is painted in the pauses.
void RestoreProgrammer::Send(std::size_t number) {
  Job& job = jobs[number];
  controls.lblOutcome.Text = "Programming " + std::to_string(number + 1) + " of " +
                             std::to_string(jobs.size()) + ": " + job.Row->Row.Subject();
  bool all = true;
  for (const std::string& each : RestoreCommands(job.Row->Row, job.Text)) {
    bool sent = false;
    try {
      sent = link.SendToRadio(each);
    } catch (const RestoreLinkLost&) {
      // The user has been told.
    }
    NoteReply();
    if (sent) {
      asked = &job;
      command = each;
    }
    all = all && sent;
    link.Sleep(commandPause);
  }
  job.Sent = all;
}

void RestoreProgrammer::NoteReply() {
  if (asked != nullptr && asked->Said.empty()) asked->Said = ObjectionIn(link.Dropped(), command);
  asked = nullptr;
}

void RestoreProgrammer::ShowSent() {
  std::vector<std::string> unsent;
  for (const Job& job : jobs) {
    if (!job.Sent) unsent.push_back(job.Row->Row.Subject());
  }
  if (jobs.empty()) {
    controls.lblOutcome.Text = "Nothing is ticked that the file has, so nothing was sent.";
  } else if (unsent.empty()) {
    controls.lblOutcome.Text = Settings(jobs.size()) + " sent.";
  } else {
    controls.lblOutcome.Text = std::to_string(jobs.size() - unsent.size()) + " of " +
                               Settings(jobs.size()) + " sent. Not sent: " + Listed(unsent) + ".";
  }
}

bool RestoreProgrammer::HasTaken(const Job& job) {
  const std::string& shown = job.Row->Current.Text();
  return job.Row->CameLast && MatchOf(job.Row->Row, shown, job.Text) == RestoreMatch::Equal;
}

void RestoreProgrammer::ShowTaken() {
  NoteReply();
  if (jobs.empty()) return;
  std::vector<std::string> refused;
  std::vector<std::string> unread;
  for (const Job& job : jobs) {
    if (!job.Sent || HasTaken(job)) continue;
    const std::string subject = job.Row->Row.Subject();
    if (!job.Row->CameLast && job.Said.empty()) {
      unread.push_back(subject);
    } else {
      refused.push_back(subject + InBrackets(job.Said));
    }
  }
  std::string text = controls.lblOutcome.Text();
  if (refused.empty() && unread.empty()) text += " The radio has what was sent.";
  if (!refused.empty()) text += " Not taken: " + Listed(refused) + ".";
  if (!unread.empty()) text += " Not read again: " + Listed(unread) + ".";
  controls.lblOutcome.Text = text;
  jobs.clear();
}

}  // namespace quillmark
