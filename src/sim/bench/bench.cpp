#include "sim/bench.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quillmark::sim {

Bench::Bench()
    : user(loop, [](const std::string& what) { ADD_FAILURE() << what; }),
      platform{.Events = loop,
               .Dialogs = user,
               .Windows = user,
               .MSComm1 = port,
               .MSComm2 = secondPort,
               .Ports = sockets,
               .Preferences = store,
               .Files = files,
               .Desktop = desktop,
               .Random = random} {
  loop.OnDefect = [](const std::string& what) { ADD_FAILURE() << "A handler threw: " << what; };
  loop.AddSource(commandWatch);
  UseRadio({});
  MakeConsole();
}

Bench::~Bench() { loop.RemoveSource(commandWatch); }

void Bench::MakeConsole() {
  console = std::make_unique<Console>(platform, settings);
  console->OnReadCycleDone = [this] { ++readCycles; };
}

void Bench::UseSettings(std::span<const Setting> others) {
  settings = others;
  console.reset();
  MakeConsole();
}

void Bench::UseRadio(SimRadioOptions options) {
  sockets.Unplug(1);
  sockets.At(1).Line = nullptr;
  line.reset();
  radio = std::make_unique<SimRadio>(std::move(options));
  line = std::make_unique<SimLine>(*radio);
  line->Advance(loop.Now());
  lastLine = Duration(-1);
  sockets.Plug(1, *line);
}

void Bench::Start() {
  loop.Deliver([this] { console->Start(); });
  if (!RunUntil([this] { return WindowOpen("frmOrvalent"); }, Seconds(5))) {
    ADD_FAILURE() << "The main window did not come up";
  }
}

void Bench::Restart() {
  console.reset();
  user.ForgetWindows();
  port.SetPortOpen(false);
  secondPort.SetPortOpen(false);
  loop.Reopen();
  readCycles = 0;
  MakeConsole();
  Start();
}

bool Bench::Connect(Duration limit) {
  const int before = readCycles;
  if (!Click("tbr_Connect")) return false;
  return RunUntil([&] { return readCycles > before; }, limit);
}

void Bench::StartConnected(SimRadioOptions options) {
  UseRadio(std::move(options));
  Start();
  if (!Connect()) ADD_FAILURE() << "The radio could not be connected and read";
  ClearLog();
}

bool Bench::Refresh(Duration limit) {
  const int before = readCycles;
  if (!Click("ButtonRefresh")) return false;
  return RunUntil([&] { return readCycles > before; }, limit);
}

void Bench::Run(Duration time) {
  const Duration end = loop.Now() + time;
  RunUntil([&] { return loop.Now() >= end; }, time);
}

bool Bench::RunUntil(const std::function<bool()>& condition, Duration limit) {
  const Duration end = loop.Now() + limit;
  while (!condition()) {
    if (loop.Now() >= end || loop.Quitting()) return condition();
    loop.Deliver([&] { loop.Wait(end - loop.Now()); });
  }
  return true;
}

bool Bench::Quit() {
  CloseWindow("frmOrvalent");
  return Ended();
}

bool Bench::Act(Form& window, const std::function<bool()>& act) {
  if (!user.CanActOn(window)) return false;
  loop.Deliver([&] { user.Activate(window); });
  bool done = false;
  loop.Deliver([&] { done = act(); });
  return done || loop.Quitting();
}

bool Bench::Click(Clickable& control) {
  return Act(control.Owner(), [&] { return control.Click(); });
}

bool Bench::Click(const std::string& name) { return Click(As<Clickable>(name)); }

bool Bench::RightClick(const std::string& name) {
  auto& button = As<Button>(name);
  return Act(button.Owner(), [&] { return button.RightClick(); });
}

bool Bench::Edit(const std::string& name, const std::string& text) {
  Control& control = Find(name);
  return Act(control.Owner(), [&] {
    if (auto* box = dynamic_cast<TextBox*>(&control)) return box->UserEdit(text);
    auto& list = As<ListBox>(name);
    const auto& items = list.Items();
    const auto at = std::find(items.begin(), items.end(), text);
    return at == items.end() ? list.UserEdit(text)
                             : list.UserSelect(static_cast<int>(at - items.begin()));
  });
}

bool Bench::Type(const std::string& name, const std::string& characters) {
  auto& box = As<TextBox>(name);
  return Act(box.Owner(), [&] { return box.UserType(characters); });
}

bool Bench::Leave(const std::string& name) {
  auto& box = As<TextBox>(name);
  return Act(box.Owner(), [&] { return box.UserLeave(); });
}

bool Bench::Select(const std::string& name, int index) {
  Control& control = Find(name);
  return Act(control.Owner(), [&] {
    if (auto* tabs = dynamic_cast<TabStrip*>(&control)) return tabs->UserSelect(index);
    return As<ListBox>(name).UserSelect(index);
  });
}

bool Bench::Slide(const std::string& name, int value) {
  auto& slider = As<Slider>(name);
  return Act(slider.Owner(), [&] { return slider.UserSlide(value); });
}

bool Bench::PressKey(const std::string& window) {
  Form* form = user.Window(window);
  return form != nullptr && Act(*form, [&] {
           form->UserKey();
           return true;
         });
}

bool Bench::CloseWindow(const std::string& window) {
  Form* form = user.Window(window);
  return form != nullptr && Act(*form, [&] {
           form->UserClose();
           return true;
         });
}

bool Bench::Drop(const std::filesystem::path& file) {
  return Act(Main(), [&] {
    Main().UserDrop(file);
    return true;
  });
}

bool Bench::Resize(double width, double height) {
  return Act(Main(), [&] {
    Main().UserResize(width, height);
    return true;
  });
}

void Bench::After(Duration delay, std::function<void()> act) {
  loop.At(loop.Now() + delay, std::move(act));
}

void Bench::OnCommand(const std::string& command, std::function<void()> act) {
  awaited.push_back({command, std::move(act)});
}

void Bench::LookForCommands() {
  const auto& lines = radio->Lines();
  auto fresh = lines.end();
  while (fresh != lines.begin() && std::prev(fresh)->at > lastLine) --fresh;
  if (!lines.empty()) lastLine = lines.back().at;
  for (; fresh != lines.end(); ++fresh) {
    const auto at = std::find_if(awaited.begin(), awaited.end(),
                                 [&](const Awaited& each) { return each.Command == fresh->text; });
    if (at == awaited.end()) continue;
    loop.Post(std::move(at->Act));
    awaited.erase(at);
  }
}

Expectation& Bench::ExpectBox(const std::string& title) {
  return user.Expect({Expectation::Kind::Box, title});
}
Expectation& Bench::ExpectInput(const std::string& title) {
  return user.Expect({Expectation::Kind::Input, title});
}
Expectation& Bench::ExpectOpenFile(const std::string& title) {
  return user.Expect({Expectation::Kind::OpenFile, title});
}
Expectation& Bench::ExpectSaveFile(const std::string& title) {
  return user.Expect({Expectation::Kind::SaveFile, title});
}
Expectation& Bench::ExpectPrinter(const std::string& fileName) {
  return user.Expect({Expectation::Kind::Printer, fileName});
}
Expectation& Bench::ExpectWindow(const std::string& name) {
  return user.Expect({Expectation::Kind::Window, name});
}

void Bench::CheckExpectations() {
  for (const std::string& unmet : user.Unmet()) ADD_FAILURE() << "There never came the " << unmet;
  user.Forget();
  for (const Awaited& each : awaited) {
    ADD_FAILURE() << "The radio never received \"" << each.Command << '"';
  }
  awaited.clear();
}

void Bench::Unplug() {
  sockets.Unplug(1);
  loop.Post([] {});
}

void Bench::Plug() {
  line->Restore();
  sockets.Plug(1, *line);
}

}  // namespace quillmark::sim
