#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace quillmark {

// Answers the logic's boxes by what a command expects of them. What it does not expect is refused,
// and kept: the command has failed then.
class HeadlessDialogs : public Dialogs {
 public:
  using Reply = std::function<Answer(const MessageBox& box)>;

  // From now on boxes of that title whose text holds `part` are answered so.
  void Expect(std::string title, std::string part, Reply reply);
  void Expect(std::string title, std::string part, Answer answer);
  // The file that the next dialogs choose.
  void Choose(std::filesystem::path file) { chosen = std::move(file); }
  // What is typed into input boxes; without it they are cancelled, and count as not expected.
  std::function<std::string(const InputBox& box)> OnInput;
  // The program ends: it waits for nobody.
  void Ending() { ending = true; }

  // The texts of the boxes that nobody expected, with their details, in the order of coming.
  const std::vector<std::string>& Unexpected() const { return unexpected; }
  void ForgetUnexpected() { unexpected.clear(); }
  // Something came up that no command expects.
  void Note(const std::string& text) { unexpected.push_back(text); }

  Answer Message(const MessageBox& box) override;
  std::string Input(const InputBox& box) override;
  std::optional<std::filesystem::path> OpenFile(const FileDialog& dialog) override;
  std::optional<std::filesystem::path> SaveFile(const FileDialog& dialog) override;
  std::optional<PrintTarget> ChoosePrinter(const std::filesystem::path& file,
                                           const std::filesystem::path& pdfFolder) override;

 private:
  // A box that a command expects.
  struct Expected {
    std::string Title;
    std::string Part;
    Reply Answers;
  };

  std::vector<Expected> expected;
  std::optional<std::filesystem::path> chosen;
  std::vector<std::string> unexpected;
  bool ending = false;
};

}  // namespace quillmark
