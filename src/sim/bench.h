#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/clickable.h"
#include "controls/form.h"
#include "platform/platform.h"
#include "session/session.h"
#include "sim/bench/scripted_user.h"
#include "sim/bench/virtual_loop.h"
#include "sim/bench/virtual_machine.h"
#include "sim/bench/virtual_port.h"
#include "sim/line_faults.h"
#include "sim/sim_line.h"
#include "sim/sim_radio.h"
#include "sim/sim_radio_options.h"
#include "start/console.h"

namespace quillmark::sim {

// The virtual bench: the whole application on virtual time, with a simulated radio on the line of
// Com1. A test is a user's session:
//
//   class SettingsView : public Bench {};
//
//   TEST_F(SettingsView, ARemoteHasNoExtensionAddress) {
//     UseRadio({.Revision = "3.2.0", .Mode = 'R'});
//     Start();
//     Connect();
//     EXPECT_EQ(Text("XADDR"), "NOT AVAILABLE");
//     EXPECT_FALSE(Enabled("XADDR"));
//     ExpectBox("Error").Containing("reconnect");
//     Unplug();
//     ...
//   }
//
// Time passes only while the program waits or sleeps, and in Run, RunUntil and Connect; the same
// test gives the same bytes at the same times in every run. All times are of that virtual clock. A
// box, dialog or modal window that nobody expected fails the test with its text, and so does, at
// the end of the test, one that was expected and never came.
//
// Controls are named as in the program ("Mode", "cmdMaster", "tbr_Connect", "pnl_Status",
// "cmdPre_0", "NetSet_3"). A bare name is looked for in the windows on the screen, the newest
// first; "frmProperties.cmdOK" names the window too. A name that no window knows fails the test.
class Bench : public ::testing::Test {
 public:
  Bench();
  ~Bench() override;

  // --- Before the start ---

  // Puts another radio on the line of Com1, its line without faults and with an empty log; may also
  // be done later, as a swap of radios, with the port open or closed.
  void UseRadio(SimRadioOptions options);
  // Gives the program other settings than those of the catalogue; they outlive the test.
  void UseSettings(std::span<const Setting> others);
  // A stored preference.
  void Store(const std::string& section, const std::string& key, const std::string& value) {
    store.Write(section, key, value);
  }
  std::string Stored(const std::string& section, const std::string& key) const {
    return store.Read(section, key, "");
  }

  // --- The session ---

  // Starts the program and lets the splash window run; the main window is up when it returns.
  void Start();
  // Clicks Connect and runs until a read cycle has ended, for `limit` at most; tells whether one
  // has. Boxes that it brings must be expected before.
  bool Connect(Duration limit = Seconds(120));
  // All three in one: another radio, the start, the connect; the log of the line is empty then.
  // Fails the test when that does not work.
  void StartConnected(SimRadioOptions options = {});
  // Requests a read (as the Refresh button) and runs until it has ended.
  bool Refresh(Duration limit = Seconds(300));
  // Lets time pass; returns late when it falls into something that waits, a read cycle say: acts
  // for the middle of one go into After or OnCommand.
  void Run(Duration time);
  // Until the condition holds, for `limit` at most; tells whether it holds.
  bool RunUntil(const std::function<bool()>& condition, Duration limit = Seconds(60));
  // Ends the program as the close box does; true when it has ended.
  bool Quit();
  bool Ended() const { return loop.Quitting(); }
  // A second start of the program on the same machine: same store, files and line.
  void Restart();
  // How many read cycles have run to their end.
  int ReadCycles() const { return readCycles; }
  Duration Now() const { return loop.Now(); }

  // --- A user's acts; each tells whether it could be done ---
  // (the control is enabled and visible, and nothing lies in front of its window)

  bool Click(const std::string& name);
  bool Click(Clickable& control);
  bool RightClick(const std::string& name);  // of a button that has a use for it
  // Replaces the text of a field, or chooses a list's item by its text.
  bool Edit(const std::string& name, const std::string& text);
  // Types character by character; in the terminal a carriage return is "\r".
  bool Type(const std::string& name, const std::string& characters);
  // Moves on to another control.
  bool Leave(const std::string& name);
  bool Select(const std::string& name, int index);  // a list's item, from 0; a tab, from 1
  bool Slide(const std::string& name, int value);
  bool PressKey(const std::string& window);  // one that no control takes
  bool CloseWindow(const std::string& window);
  bool Resize(double width, double height);      // the main window, twips
  bool Drop(const std::filesystem::path& file);  // on the main window

  // Acts that happen in the middle of something: after a time, or when the radio has received a
  // command (exact text). They run inside the program's next pump or wait, as a user's would.
  void After(Duration delay, std::function<void()> act);
  void OnCommand(const std::string& command, std::function<void()> act);

  // --- Boxes, dialogs and modal windows to come, in any order ---
  // A box without a title of its own has ProgramTitle.

  Expectation& ExpectBox(const std::string& title);
  Expectation& ExpectInput(const std::string& title);
  Expectation& ExpectOpenFile(const std::string& title);
  Expectation& ExpectSaveFile(const std::string& title);
  // The dialog that asks where a file of that name (without its folders) is to be printed.
  Expectation& ExpectPrinter(const std::string& fileName);
  Expectation& ExpectWindow(const std::string& name);
  // For sessions with faults at random: unexpected boxes and dialogs are closed without failing the
  // test. Boxes() tells them all the same.
  void TolerateBoxes(bool tolerated = true) { user.Tolerate(tolerated); }
  // Every box and dialog that came up, in the order of coming.
  const std::vector<ScriptedUser::Seen>& Boxes() const { return user.SeenBoxes(); }

  // --- What can be read ---

  Control& Find(const std::string& name);
  // The control as its kind; fails the test when it is of another.
  template <class Kind>
  Kind& As(const std::string& name) {
    auto* control = dynamic_cast<Kind*>(&Find(name));
    if (control == nullptr) throw std::invalid_argument(name + " is of another kind");
    return *control;
  }
  std::string Text(const std::string& name);  // text, caption, or a window's caption
  // What the rows of the main window are marked with, a line each.
  std::string Marks();
  std::string ToolTip(const std::string& name) { return Find(name).ToolTip(); }
  // The control's own flags; Find(name).Reachable() tells whether a user could act on it, the
  // frames and the window that hold it included.
  bool Enabled(const std::string& name) { return Find(name).Enabled(); }
  bool Visible(const std::string& name) { return Find(name).Visible(); }
  bool Checked(const std::string& name);
  double Top(const std::string& name) { return Find(name).Top(); }
  Pointer MousePointer(const std::string& name) { return As<Clickable>(name).MousePointer(); }
  // The frame in front of the settings area: "frQuick" or "NetSet_0" to "NetSet_5".
  std::string FrontFrame();
  // Whether a window of that name is on the screen.
  bool WindowOpen(const std::string& name) { return user.Window(name) != nullptr; }
  frmOrvalent& Main() { return console->Main(); }
  Session& Shared() { return console->Shared(); }
  Console& Application() { return *console; }
  // The virtual machine, as the program's windows are given it.
  Platform& Machine() { return platform; }

  // --- The radio and its line ---

  SimRadio& Radio() { return *radio; }
  SimLine& Line() { return *line; }
  LineFaults& Faults() { return line->Faults(); }
  // Every byte that the program has sent since ClearLog, in one string, and what it received. Their
  // times, at the far end of the line, are in Line().Log().ToRadio().Times and ToHost().Times.
  const std::string& Sent() { return line->Log().Sent(); }
  const std::string& Received() { return line->Log().Received(); }
  // What was sent, cut at its carriage returns; bare ones give empty texts.
  std::vector<std::string> SentLines();
  // Without the empty ones and those that begin with Escape.
  std::vector<std::string> SentCommands();
  void ClearLog() { line->ClearLog(); }
  // Pulls the adapter of Com1, and plugs it in again.
  void Unplug();
  void Plug();
  VirtualSockets& Sockets() { return sockets; }
  VirtualPort& Port() { return port; }              // MSComm1
  VirtualPort& SecondPort() { return secondPort; }  // MSComm2

  // --- The machine ---

  std::filesystem::path DataFolder() const { return files.Data(); }
  std::filesystem::path ShippedFolder() const { return files.Shipped(); }
  std::filesystem::path ScratchFolder() const { return files.Root(); }
  RecordingDesktop& DesktopSeen() { return desktop; }
  RepeatableRandom& Random() { return random; }
  VirtualLoop& Events() { return loop; }

  // Fails the test for everything expected that has not come by now, and forgets it.
  void CheckExpectations();

 protected:
  void TearDown() override { CheckExpectations(); }

 private:
  void MakeConsole();
  bool Act(Form& window, const std::function<bool()>& act);
  void LookForCommands();

  VirtualLoop loop;
  VirtualSockets sockets;
  VirtualPort port{loop, sockets};
  VirtualPort secondPort{loop, sockets};
  MemoryStore store;
  ScratchFiles files;
  RecordingDesktop desktop;
  RepeatableRandom random;
  ScriptedUser user;
  Platform platform;
  std::unique_ptr<SimRadio> radio;
  std::unique_ptr<SimLine> line;
  std::span<const Setting> settings = AllSettings();
  std::unique_ptr<Console> console;
  // An act that waits for a command.
  struct Awaited {
    std::string Command;
    std::function<void()> Act;
  };
  std::vector<Awaited> awaited;
  Duration lastLine{-1};  // when the newest line that was looked at had arrived
  int readCycles = 0;

  // Looks at what the radio received each time the clock has moved.
  class CommandWatch : public TimeSource {
   public:
    explicit CommandWatch(Bench& watched) : bench(watched) {}
    std::optional<Duration> NextEvent() const override { return std::nullopt; }
    void Advance(Duration) override { bench.LookForCommands(); }

   private:
    Bench& bench;
  } commandWatch{*this};
};

}  // namespace quillmark::sim
