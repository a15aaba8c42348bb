#include "restore/restore_program.h"

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

void SendEach(const std::vector<std::string>& commands, RestoreLink& link) {
  for (const std::string& command : commands) {
    try {
      link.SendToRadio(command);
    } catch (const RestoreLinkLost&) {
      // The user has been told.
    }
    link.Sleep(commandPause);
  }
}

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

void ProgramTickedRows(RestoreControls& controls, RestoreLink& link) {
  for (const RestoreRowControls& row : controls.Rows) {
    const bool wanted = row.Check.Checked() && row.Shown() && row.New.Text() != NoValue;
    if (wanted) SendEach(RestoreCommands(row.Row, row.New.Text()), link);
  }
}

}  // namespace quillmark
