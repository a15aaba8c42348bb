#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmark {

// The boxes and dialogs that a handler asks the user with. Each call returns when the user has
// answered; timers and the serial port go on meanwhile. Texts are single-byte (Latin-1) and plain.

// The symbol and the buttons of a box, and what the user has answered.
enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class Answer { Ok, Cancel, Yes, No, Abort, Retry, Ignore };

// What closing a box by its close box or Escape answers: Cancel where there is such a button, else
// No, Abort or Ok, whichever the box has.
Answer CloseAnswer(Buttons choice);
// What refuses to do the thing asked about: No where there is such a button, else as CloseAnswer.
Answer Refusal(Buttons choice);

// The application's title; also that of a box without a title of its own.
inline constexpr const char* ProgramTitle = "KELVOR Quillmark SS Configuration";

// A message box. An empty title is shown as such.
struct MessageBox {
  std::string Text;
  std::string Title = ProgramTitle;
  Icon Symbol = Icon::None;
  Buttons Choice = Buttons::Ok;
  std::string Details{};      // below the text: the cause and the cure, or what a Yes brings
  bool Irreversible = false;  // a Yes cannot be undone: Enter answers No
  // Captions of buttons that say what they do, in the place of the usual ones.
  std::vector<std::pair<Answer, std::string>> Captions{};
};

// A box that asks for one line of text.
struct InputBox {
  std::string Prompt;
  std::string Title;
  std::string Default;
  std::string Hint{};  // below the prompt: what may be typed
  // What is wrong with a text, as one sentence; empty: nothing. It is asked again at each change of
  // the line, and its sentence is shown. The user may answer with such a text all the same.
  std::function<std::string(std::string_view)> Check{};
};

// `Filter` is pairs of name and pattern joined by "|": "Log Files (*.LOG)|*.log|All Files
// (*.*)|*.*".
struct FileDialog {
  std::string Title;
  std::string Filter;
  std::filesystem::path Folder{};  // that it opens in; empty: the desktop's choice
  std::string Name{};              // offered for the file
};

// A printer that the user has chosen, and how.
struct PrintTarget {
  std::string Printer;               // its name; empty when the pages go into a file
  std::filesystem::path PdfFile{};   // that file
  std::shared_ptr<void> Settings{};  // what else was chosen; only the desktop knows it
};

// Shows boxes and dialogs.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  virtual Answer Message(const MessageBox& box) = 0;
  // One line without control characters; empty on Cancel.
  virtual std::string Input(const InputBox& box) = 0;
  // Nothing on Cancel. They ask nothing about files that exist; a name typed without an ending gets
  // the filter's.
  virtual std::optional<std::filesystem::path> OpenFile(const FileDialog& dialog) = 0;
  virtual std::optional<std::filesystem::path> SaveFile(const FileDialog& dialog) = 0;
  // Where `file` is to be printed, the default printer offered first; on a machine without one, the
  // PDF file to write, in `pdfFolder` unless that is empty. Nothing on Cancel.
  virtual std::optional<PrintTarget> ChoosePrinter(const std::filesystem::path& file,
                                                   const std::filesystem::path& pdfFolder) = 0;
};

}  // namespace quillmark
