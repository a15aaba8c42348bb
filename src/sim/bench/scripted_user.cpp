#include "sim/bench/scripted_user.h"

#include <algorithm>
#include <utility>

#include "platform/event_loop.h"
#include "text/at_end.h"

namespace quillmark::sim {

namespace {

const char* KindName(Expectation::Kind kind) {
  switch (kind) {
    case Expectation::Kind::Box:
      return "box";
    case Expectation::Kind::Input:
      return "input box";
    case Expectation::Kind::OpenFile:
      return "open dialog";
    case Expectation::Kind::SaveFile:
      return "save dialog";
    case Expectation::Kind::Printer:
      return "printer dialog";
    case Expectation::Kind::Window:
      break;
  }
  return "window";
}

bool HasButton(Buttons choice, Answer button) {
  switch (button) {
    case Answer::Ok:
      return choice == Buttons::Ok || choice == Buttons::OkCancel;
    case Answer::Cancel:
      return choice == Buttons::OkCancel || choice == Buttons::YesNoCancel ||
             choice == Buttons::RetryCancel;
    case Answer::Yes:
    case Answer::No:
      return choice == Buttons::YesNo || choice == Buttons::YesNoCancel;
    case Answer::Abort:
    case Answer::Ignore:
      return choice == Buttons::AbortRetryIgnore;
    case Answer::Retry:
      return choice == Buttons::RetryCancel || choice == Buttons::AbortRetryIgnore;
  }
  return false;
}

// An hour of a modal window that nobody closes is a test that hangs.
constexpr Duration longestModal = Seconds(3600);

}  // namespace

Expectation& Expectation::Containing(std::string part) {
  parts.push_back(std::move(part));
  return *this;
}
Expectation& Expectation::Saying(std::string text) {
  whole = std::move(text);
  return *this;
}
Expectation& Expectation::With(Icon icon) {
  symbol = icon;
  return *this;
}
Expectation& Expectation::With(Buttons buttons) {
  choice = buttons;
  return *this;
}
Expectation& Expectation::Offering(std::string defaultText) {
  offered = std::move(defaultText);
  return *this;
}
Expectation& Expectation::Reply(Answer button) {
  answer = button;
  return *this;
}
Expectation& Expectation::Type(std::string text) {
  typed = std::move(text);
  return *this;
}
Expectation& Expectation::Choose(std::filesystem::path chosen) {
  path = std::move(chosen);
  return *this;
}
Expectation& Expectation::ChoosePrinter(std::string name) {
  printer = std::move(name);
  return *this;
}
Expectation& Expectation::Do(std::function<void()> what) {
  acts = [what = std::move(what)](Form&) { what(); };
  return *this;
}
Expectation& Expectation::Do(std::function<void(Form&)> what) {
  acts = std::move(what);
  return *this;
}
Expectation& Expectation::StaysUp(Duration time) {
  staysUp = time;
  return *this;
}

std::string Expectation::Describe() const {
  std::string text = std::string(KindName(kind)) + " \"" + title + "\"";
  for (const std::string& part : parts) text += " containing \"" + part + "\"";
  if (whole) text += " saying \"" + *whole + "\"";
  return text;
}

ScriptedUser::ScriptedUser(VirtualLoop& itsLoop, std::function<void(const std::string&)> onFault)
    : loop(itsLoop), fault(std::move(onFault)) {}

Expectation& ScriptedUser::Expect(Expectation expectation) {
  expected.push_back(std::move(expectation));
  return expected.back();
}

std::vector<std::string> ScriptedUser::Unmet() const {
  std::vector<std::string> unmet;
  for (const Expectation& expectation : expected) unmet.push_back(expectation.Describe());
  return unmet;
}

bool ScriptedUser::Fits(const Expectation& expectation, const Seen& box) {
  const auto holds = [&box](const std::string& part) {
    return box.Text.find(part) != std::string::npos;
  };
  return expectation.kind == box.What && expectation.title == box.Title &&
         std::all_of(expectation.parts.begin(), expectation.parts.end(), holds) &&
         (!expectation.whole || *expectation.whole == box.Text) &&
         (!expectation.symbol || *expectation.symbol == box.Symbol) &&
         (!expectation.choice || *expectation.choice == box.Choice) &&
         (!expectation.offered || *expectation.offered == box.Default);
}

std::optional<Expectation> ScriptedUser::Meet(const Seen& box) {
  const auto at = std::find_if(expected.begin(), expected.end(),
                               [&box](const Expectation& each) { return Fits(each, box); });
  if (at == expected.end()) {
    if (tolerant && box.What != Expectation::Kind::Window) return std::nullopt;
    fault("Nobody expected the " + std::string(KindName(box.What)) + " \"" + box.Title +
          "\": " + box.Text);
    return std::nullopt;
  }
  Expectation met = std::move(*at);
  expected.erase(at);
  if (met.answer && !HasButton(box.Choice, *met.answer)) {
    fault("The reply to the " + met.Describe() + " is a button that it lacks: " + box.Text);
    met.answer.reset();
  }
  return met;
}

void ScriptedUser::Pass(Duration time) {
  const Duration end = loop.Now() + time;
  while (!loop.Quitting() && loop.Now() < end) loop.Wait(end - loop.Now());
}

void ScriptedUser::PlayBox(const Expectation& expectation) {
  ++boxesUp;
  const AtEnd down([this] { --boxesUp; });
  Pass(expectation.staysUp);
  Form nobody("");
  if (expectation.acts) expectation.acts(nobody);
}

Answer ScriptedUser::Message(const MessageBox& box) {
  seen.push_back({Expectation::Kind::Box,
                  box.Title,
                  box.Text,
                  box.Details,
                  box.Symbol,
                  box.Choice,
                  {},
                  box.Irreversible});
  const auto met = Meet(seen.back());
  if (!met) return CloseAnswer(box.Choice);
  PlayBox(*met);
  return met->answer.value_or(CloseAnswer(box.Choice));
}

std::string ScriptedUser::Input(const InputBox& box) {
  seen.push_back({Expectation::Kind::Input,
                  box.Title,
                  box.Prompt,
                  {},
                  Icon::None,
                  Buttons::OkCancel,
                  box.Default,
                  false,
                  box.Hint});
  const std::size_t place = seen.size() - 1;
  const auto met = Meet(seen.back());
  if (!met) return {};
  PlayBox(*met);
  std::string text = met->typed.value_or(met->answer == Answer::Ok ? box.Default : "");
  std::erase_if(text, [](unsigned char c) { return c < 32 || c == 127; });
  // Another box may have come up over this one.
  if (box.Check) seen[place].Objection = box.Check(text);
  return text;
}

std::optional<std::filesystem::path> ScriptedUser::Dialog(Expectation::Kind kind,
                                                          const FileDialog& dialog) {
  seen.push_back({kind,
                  dialog.Title,
                  dialog.Filter,
                  {},
                  Icon::None,
                  Buttons::OkCancel,
                  (dialog.Folder / dialog.Name).string()});
  const auto met = Meet(seen.back());
  if (!met) return std::nullopt;
  PlayBox(*met);
  return met->path;
}

std::optional<std::filesystem::path> ScriptedUser::OpenFile(const FileDialog& dialog) {
  return Dialog(Expectation::Kind::OpenFile, dialog);
}

std::optional<std::filesystem::path> ScriptedUser::SaveFile(const FileDialog& dialog) {
  return Dialog(Expectation::Kind::SaveFile, dialog);
}

std::optional<PrintTarget> ScriptedUser::ChoosePrinter(const std::filesystem::path& file,
                                                       const std::filesystem::path& pdfFolder) {
  seen.push_back({Expectation::Kind::Printer,
                  file.filename().string(),
                  file.string(),
                  {},
                  Icon::None,
                  Buttons::OkCancel,
                  pdfFolder.string()});
  const auto met = Meet(seen.back());
  if (!met) return std::nullopt;
  PlayBox(*met);
  if (!met->printer && !met->path) return std::nullopt;
  return PrintTarget{met->printer.value_or(""), met->path.value_or("")};
}

void ScriptedUser::Show(const std::shared_ptr<Form>& form) {
  std::erase(windows, form);
  windows.push_back(form);
  active = form;
  form->Activate();
}

void ScriptedUser::Activate(Form& form) {
  const auto before = active.lock();
  if (before.get() == &form) return;
  active = form.weak_from_this();
  if (before) before->Deactivate();
}

void ScriptedUser::ShowModal(const std::shared_ptr<Form>& form, Form&) {
  windows.push_back(form);
  modal.push_back(form.get());
  const AtEnd down([&] { std::erase(modal, form.get()); });
  const auto met = Meet(
      {Expectation::Kind::Window, form->Name(), form->Caption(), {}, Icon::None, Buttons::Ok, {}});
  if (!met) {
    form->Unload();
    return;
  }
  Pass(met->staysUp);
  if (met->acts) loop.Deliver([&] { met->acts(*form); });
  const Duration end = loop.Now() + longestModal;
  while (form->Loaded() && loop.Now() < end) loop.Wait(end - loop.Now());
  if (!form->Loaded()) return;
  fault("Nobody closed the window " + form->Name());
  form->Unload();
}

const std::vector<std::shared_ptr<Form>>& ScriptedUser::OpenWindows() {
  std::erase_if(windows, [](const std::shared_ptr<Form>& form) { return !form->Loaded(); });
  return windows;
}

Form* ScriptedUser::Window(const std::string& name) {
  const auto& open = OpenWindows();
  const auto at = std::find_if(open.rbegin(), open.rend(),
                               [&name](const auto& form) { return form->Name() == name; });
  return at == open.rend() ? nullptr : at->get();
}

bool ScriptedUser::CanActOn(const Form& form) {
  if (boxesUp > 0) return false;
  if (modal.empty() || modal.back() == &form) return true;
  // A window that was opened after the modal one lies in front of it.
  const auto place = [this](const Form* wanted) {
    return std::find_if(windows.begin(), windows.end(),
                        [wanted](const auto& each) { return each.get() == wanted; });
  };
  return place(&form) > place(modal.back());
}

}  // namespace quillmark::sim
