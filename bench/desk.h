#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "controls/form.h"
#include "platform/platform.h"
#include "qt/machine.h"
#include "recorded_port.h"
#include "start/console.h"
#include "watched_loop.h"

namespace quillmark::bench {

class Surroundings;

// Answers as a user who agrees, and chooses the file that the bench wants.
class DeskDialogs : public Dialogs {
 public:
  Answer Message(const MessageBox& box) override;
  std::string Input(const InputBox&) override { return {}; }
  std::optional<std::filesystem::path> OpenFile(const FileDialog&) override { return ChosenFile; }
  std::optional<std::filesystem::path> SaveFile(const FileDialog&) override { return ChosenFile; }
  std::optional<PrintTarget> ChoosePrinter(const std::filesystem::path&,
                                           const std::filesystem::path&) override {
    return {};
  }

  std::optional<std::filesystem::path> ChosenFile;
  std::string LastMessage;
};

// The whole console with its windows off screen, on a serial device, without a user. One at a time,
// within the life of the application. What does not come about in time throws std::runtime_error.
class Desk {
 public:
  // An empty device leaves port 1 without any; otherwise the console connects when it is shown.
  Desk(const Surroundings& surroundings, const std::string& device);
  ~Desk();

  // Starts the console and returns when its main window is there.
  void ShowMain();
  // The same, and returns when it has connected and read the radio for the first time.
  void Connect();
  // Has the radio read once more.
  void ReadAgain();

  void RunFor(Duration time);
  // Starts the console; returns after Leave, or throws, naming `what`, when `limit` has passed.
  void Start(Duration limit, const std::string& what);
  // Has Start or Run return as soon as the handlers on the stack have.
  void Leave();
  // The same at once: waits on the stack end. The console cannot go on after that.
  void Quit() { machine.Events.Quit(); }
  // Whether `done()` came true within `limit`. It is asked 50 times a second: not for idle times.
  bool RunUntil(Duration limit, const std::function<bool()>& done);

  frmOrvalent& Main() { return console->Main(); }
  RecordedPort& Port() { return port; }
  // The serial control of the store and restore window.
  RecordedPort& RestorePort() { return restorePort; }
  // The form of that name whose window is up, or null.
  Form* Shown(const std::string& name) const { return machine.Shown.FormNamed(name); }
  const WatchedLoop& Loop() const { return loop; }
  DeskDialogs& Boxes() { return boxes; }

  // Told at the end of each read of the radio.
  std::function<void()> OnRead;

 private:
  void Run(Duration limit, const std::string& what);

  DeskDialogs boxes;
  Machine machine;
  WatchedLoop loop;
  RecordedPort port;
  RecordedPort restorePort;
  Platform platform;
  std::optional<Console> console;
};

// Calls `act` once, after `time`, from the loop that runs then; unless `owner` dies before.
void After(Duration time, QObject& owner, std::function<void()> act);

}  // namespace quillmark::bench
