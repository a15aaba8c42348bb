#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "sim/bench/virtual_loop.h"

namespace quillmark::sim {

// The user of the virtual bench: what is done when a box, a dialog or a modal window comes up is
// said beforehand. Something that nobody expected, and something expected that never came, is a
// fault.

// What is expected, and what is done with it. Made by Bench::Expect...; the calls can be chained.
class Expectation {
 public:
  enum class Kind { Box, Input, OpenFile, SaveFile, Printer, Window };

  Expectation(Kind what, std::string title) : kind(what), title(std::move(title)) {}

  // More conditions on a box's text or an input box's prompt.
  Expectation& Containing(std::string part);
  Expectation& Saying(std::string whole);
  Expectation& With(Icon symbol);
  Expectation& With(Buttons choice);
  // An input box's default; of a file dialog its folder and the name in it, of a printer dialog the
  // folder of the PDF.
  Expectation& Offering(std::string defaultText);

  // What the user does. Without one of these a box is closed by its close box (Cancel where it has
  // such a button, else No, Abort or Ok), an input box and a dialog are cancelled, and a window is
  // left to itself.
  Expectation& Reply(Answer button);  // one that the box has
  Expectation& Type(std::string text);
  Expectation& Choose(std::filesystem::path path);  // a file; in a printer dialog, its PDF file
  Expectation& ChoosePrinter(std::string name);
  // Done while it is up, before the answer. For a window: with the form.
  Expectation& Do(std::function<void()> acts);
  Expectation& Do(std::function<void(Form&)> acts);
  // Stays up that long, while timers and the line go on.
  Expectation& StaysUp(Duration time);

  std::string Describe() const;

 private:
  friend class ScriptedUser;

  Kind kind;
  std::string title;
  std::vector<std::string> parts;
  std::optional<std::string> whole;
  std::optional<Icon> symbol;
  std::optional<Buttons> choice;
  std::optional<std::string> offered;
  std::optional<Answer> answer;
  std::optional<std::string> typed;
  std::optional<std::filesystem::path> path;
  std::optional<std::string> printer;
  std::function<void(Form&)> acts;
  Duration staysUp{};
};

class ScriptedUser : public Dialogs, public Windows {
 public:
  // A box, input box or dialog that came up, in the order of coming.
  struct Seen {
    Expectation::Kind What;
    std::string Title;
    std::string Text;
    std::string Details;
    Icon Symbol = Icon::None;
    Buttons Choice = Buttons::Ok;
    std::string Default;
    bool Irreversible = false;
    std::string Hint{};       // of an input box
    std::string Objection{};  // what an input box said of the answer that was given
  };

  // `fault` is told each thing that went wrong.
  ScriptedUser(VirtualLoop& loop, std::function<void(const std::string&)> fault);

  Expectation& Expect(Expectation expectation);
  const std::vector<Seen>& SeenBoxes() const { return seen; }
  // The expectations that nothing has met yet.
  std::vector<std::string> Unmet() const;
  void Forget() { expected.clear(); }
  // From now on a box or dialog that nobody expected is closed without a word.
  void Tolerate(bool tolerated) { tolerant = tolerated; }

  // Nothing is on the screen any more.
  void ForgetWindows() { windows.clear(); }
  // The windows on the screen, the newest last.
  const std::vector<std::shared_ptr<Form>>& OpenWindows();
  // The window on the screen of that name, the newest first, or null.
  Form* Window(const std::string& name);
  // Whether a user can act on the window just now: no box and no other modal window is in front.
  bool CanActOn(const Form& form);
  // The form becomes the active one, as at a click on its window.
  void Activate(Form& form);

  Answer Message(const MessageBox& box) override;
  std::string Input(const InputBox& box) override;
  std::optional<std::filesystem::path> OpenFile(const FileDialog& dialog) override;
  std::optional<std::filesystem::path> SaveFile(const FileDialog& dialog) override;
  std::optional<PrintTarget> ChoosePrinter(const std::filesystem::path& file,
                                           const std::filesystem::path& pdfFolder) override;
  void Show(const std::shared_ptr<Form>& form) override;
  void ShowModal(const std::shared_ptr<Form>& form, Form& owner) override;

 private:
  std::optional<Expectation> Meet(const Seen& box);
  static bool Fits(const Expectation& expectation, const Seen& box);
  // Whether the box has the button that the expectation replies with; if not, that is a fault.
  bool CanReply(const Expectation& expectation, const Seen& box);
  // Keeps the box up and does the acts.
  void PlayBox(const Expectation& expectation);
  std::optional<std::filesystem::path> Dialog(Expectation::Kind kind, const FileDialog& dialog);
  void Pass(Duration time);

  VirtualLoop& loop;
  std::function<void(const std::string&)> fault;
  std::deque<Expectation> expected;
  std::vector<Seen> seen;
  std::vector<std::shared_ptr<Form>> windows;
  std::vector<Form*> modal;
  std::weak_ptr<Form> active;
  int boxesUp = 0;
  bool tolerant = false;
};

}  // namespace quillmark::sim
