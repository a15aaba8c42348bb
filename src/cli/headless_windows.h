#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cli/headless_dialogs.h"
#include "controls/form.h"
#include "platform/event_loop.h"
#include "platform/windows.h"

namespace quillmark {

// Windows that nobody sees. The splash window goes at once; a modal window does what a command
// expects of it, or is closed and told like a box that nobody expected.
class HeadlessWindows : public Windows {
 public:
  HeadlessWindows(EventLoop& events, HeadlessDialogs& dialogs) : events(events), dialogs(dialogs) {}

  // What is done in the modal window of that name when it is up. Whoever does it sees to it that
  // the window is unloaded in the end.
  void Expect(const std::string& name, std::function<void(Form& form)> acts);

  void Show(const std::shared_ptr<Form>& form) override;
  void ShowModal(const std::shared_ptr<Form>& form, Form& owner) override;

 private:
  EventLoop& events;
  HeadlessDialogs& dialogs;
  std::map<std::string, std::function<void(Form&)>> expected;
  std::vector<std::shared_ptr<Form>> shown;  // those that are not modal
};

}  // namespace quillmark
