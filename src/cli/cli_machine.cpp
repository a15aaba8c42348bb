#include "cli/cli_machine.h"

#include <algorithm>
#include <charconv>

#include "cli/exit_codes.h"

namespace quillmark {

namespace {

constexpr int portNumbers = 16;

bool SoundFolders() {
  if (const auto trouble = FolderTrouble()) throw Failure{Exit::Usage, *trouble, " "};
  return true;
}

// The number that the text is, or 0.
int NumberIn(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

std::string DevicePath(const std::string& named) {
  const bool bare = named.find('/') == std::string::npos;
  return bare ? "/dev/" + named : std::filesystem::absolute(named).string();
}

}  // namespace

CliMachine::CliMachine(const GlobalOptions& options)
    : foldersAreSound(SoundFolders()),
      Base(Duration::max(), IniPreferenceStore::Writes::ToMemory),
      Shown(Base.Events, Boxes),
      Platform((Base.Name(NamedIn(options)), Base.AsPlatform(Boxes, Shown, Screen))),
      endSignals([this] { Signalled(); }) {}

std::vector<RunPreferences::Entry> CliMachine::NamedIn(const GlobalOptions& options) {
  std::vector<RunPreferences::Entry> named{{"Preferences", "ConnectOnLaunch", "False"},
                                           {"Preferences", "LogoutOnQuit", "False"},
                                           {"Preferences", "PlanFirst", "True"}};
  if (options.Port.empty()) return named;
  const bool number =
      std::ranges::all_of(options.Port, [](char c) { return c >= '0' && c <= '9'; });
  if (!number) {
    named.push_back(Base.PortNamed(DevicePath(options.Port)));
  } else if (const int port = NumberIn(options.Port); port >= 1 && port <= portNumbers) {
    named.push_back({"Properties", "CommPort", std::to_string(port)});
  } else {
    throw Failure{Exit::Usage, "There is no port " + options.Port + ": ports are 1 to 16."};
  }
  return named;
}

std::string CliMachine::DeviceOf(const std::string& port) {
  const int number = NumberIn(port);
  return number > 0 ? Base.Numbers.DeviceOf(number) : DevicePath(port);
}

void CliMachine::Signalled() {
  // A second signal ends a program that is held up.
  if (interrupted) return Base.Events.Quit();
  interrupted = true;
  Boxes.Ending();
  if (OnSignal) OnSignal();
  Base.Events.Quit();
}

void CliMachine::CheckSignals() {
  if (!interrupted) return;
  if (ThrowInterrupted) ThrowInterrupted();
  throw Failure{Exit::Interrupted, "Interrupted."};
}

bool CliMachine::WaitFor(const std::function<bool()>& done, Duration limit) {
  constexpr Duration longest = Seconds(3600);
  const Duration end = Base.Events.Now() + std::min(limit, Seconds(1e6));
  for (;;) {
    CheckSignals();
    if (done()) return true;
    const Duration left = end - Base.Events.Now();
    if (left <= Duration::zero()) return false;
    Base.Events.Deliver([&] { Base.Events.Wait(std::min(left, longest)); });
  }
}

}  // namespace quillmark
