#include "cli/headless_windows.h"

#include <utility>

#include "start/frmSplash.h"

namespace quillmark {

void HeadlessWindows::Expect(const std::string& name, std::function<void(Form& form)> acts) {
  expected[name] = std::move(acts);
}

void HeadlessWindows::Show(const std::shared_ptr<Form>& form) {
  std::erase_if(shown, [](const std::shared_ptr<Form>& each) { return !each->Loaded(); });
  if (dynamic_cast<frmSplash*>(form.get()) != nullptr) {
    form->Unload();
    return;
  }
  shown.push_back(form);
  form->Activate();
}

void HeadlessWindows::ShowModal(const std::shared_ptr<Form>& form, Form&) {
  const auto acts = expected.find(form->Name());
  if (acts == expected.end()) {
    dialogs.Note("The window \"" + form->Caption() + "\" came up.");
    form->Unload();
    return;
  }
  acts->second(*form);
  constexpr Duration longestWait = Seconds(1);
  while (form->Loaded()) events.Wait(longestWait);
}

}  // namespace quillmark
