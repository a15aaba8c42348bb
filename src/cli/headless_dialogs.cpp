#include "cli/headless_dialogs.h"

#include <algorithm>
#include <utility>

namespace quillmark {

void HeadlessDialogs::Expect(std::string title, std::string part, Reply reply) {
  expected.push_back({std::move(title), std::move(part), std::move(reply)});
}

void HeadlessDialogs::Expect(std::string title, std::string part, Answer answer) {
  Expect(std::move(title), std::move(part), [answer](const MessageBox&) { return answer; });
}

Answer HeadlessDialogs::Message(const MessageBox& box) {
  const auto at = std::ranges::find_if(expected, [&box](const Expected& each) {
    return each.Title == box.Title && box.Text.find(each.Part) != std::string::npos;
  });
  if (at != expected.end()) return at->Answers(box);
  if (ending && box.Choice == Buttons::AbortRetryIgnore) return Answer::Ignore;
  Note(box.Details.empty() ? box.Text : box.Text + " " + box.Details);
  return Refusal(box.Choice);
}

std::string HeadlessDialogs::Input(const InputBox& box) {
  if (OnInput) return OnInput(box);
  Note(box.Prompt);
  return {};
}

std::optional<std::filesystem::path> HeadlessDialogs::OpenFile(const FileDialog& dialog) {
  if (!chosen) Note(dialog.Title);
  return chosen;
}

std::optional<std::filesystem::path> HeadlessDialogs::SaveFile(const FileDialog& dialog) {
  return OpenFile(dialog);
}

std::optional<PrintTarget> HeadlessDialogs::ChoosePrinter(const std::filesystem::path&,
                                                          const std::filesystem::path&) {
  Note("There is nothing to print on.");
  return std::nullopt;
}

}  // namespace quillmark
