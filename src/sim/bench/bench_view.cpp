#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/option_button.h"
#include "sim/bench.h"

// What a test reads on the virtual bench: windows, controls, and what was sent.

namespace quillmark::sim {

namespace {

// The form itself, or one of its controls.
Control* FindIn(Form& form, const std::string& name) {
  return form.Name() == name ? &form : form.Find(name);
}

}  // namespace

Control& Bench::Find(const std::string& name) {
  const std::size_t point = name.find('.');
  const std::string window = point == std::string::npos ? "" : name.substr(0, point);
  const std::string control = point == std::string::npos ? name : name.substr(point + 1);
  const auto& open = user.OpenWindows();
  for (auto form = open.rbegin(); form != open.rend(); ++form) {
    if (!window.empty() && (*form)->Name() != window) continue;
    if (Control* found = FindIn(**form, control)) return *found;
  }
  // The main window's controls can be read before its start and after its end.
  const bool mayBeMain = window.empty() || window == Main().Name();
  if (Control* found = mayBeMain ? FindIn(Main(), control) : nullptr) return *found;
  throw std::invalid_argument("No window has a control named " + name);
}

std::string Bench::Text(const std::string& name) {
  Control& control = Find(name);
  if (auto* form = dynamic_cast<Form*>(&control)) return form->Caption();
  if (auto* box = dynamic_cast<TextBox*>(&control)) return box->Text();
  if (auto* list = dynamic_cast<ListBox*>(&control)) return list->Text();
  return As<Clickable>(name).Text();
}

bool Bench::Checked(const std::string& name) {
  Control& control = Find(name);
  if (auto* item = dynamic_cast<MenuItem*>(&control)) return item->Checked();
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return option->Checked();
  return As<CheckBox>(name).Checked();
}

std::string Bench::FrontFrame() {
  const Frame* front = Main().frQuick.Visible() ? &Main().frQuick : nullptr;
  for (const Frame& frame : Main().NetSet) {
    if (front == nullptr || frame.Depth() > front->Depth()) front = &frame;
  }
  return front->Name();
}

std::vector<std::string> Bench::SentLines() {
  std::vector<std::string> lines;
  std::string text;
  for (const char c : Sent()) {
    if (c == '\r') {
      lines.push_back(std::exchange(text, {}));
    } else {
      text += c;
    }
  }
  if (!text.empty()) lines.push_back(text);
  return lines;
}

std::vector<std::string> Bench::SentCommands() {
  std::vector<std::string> commands;
  for (std::string& text : SentLines()) {
    text.erase(0, text.find_first_not_of('\n'));
    if (!text.empty() && text.front() != '\x1B') commands.push_back(std::move(text));
  }
  return commands;
}

std::string Bench::Marks() {
  std::string marks;
  for (const SettingRow& row : Main().Rows) {
    if (!row.Mark().empty()) marks += row.Mark() + "\n";
  }
  return marks;
}

}  // namespace quillmark::sim
