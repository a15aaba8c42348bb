#pragma once

#include <gtest/gtest-spi.h>

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "sim/bench.h"

namespace quillmark::attack {

// A line that the radio took.
struct TakenLine {
  sim::Time At;
  std::string Text;
  bool OwnValue;  // programs the name or the address that the radio has anyway: the login probes
};

// Each file below a folder, with its content; a folder in a file's place is "(folder)".
using Tree = std::map<std::string, std::string>;

// The virtual bench of one case of the attack, outside of a test: it gathers what the bench
// reports, follows what the radio takes and what the user reads, and its acts never fail. Made for
// each case anew.
class World : public sim::Bench, private sim::TimeSource {
 public:
  World();
  ~World() override;

  // The program runs on a radio with odd values; `connected`: and has read it.
  void Begin(const sim::SimRadioOptions& options, const std::string& ownName, bool connected);
  // From here on counts what happens: lines, boxes, what the radio holds.
  void Mark();

  // --- A user's acts, which may come too late for their window; each tells whether it was done ---
  bool Press(const std::string& name);
  bool Put(const std::string& name, const std::string& text);
  bool Toggle(const std::string& name);  // a row or button of the settings view
  // What is done in a window when it comes up. Then it is left by `button`, or by its close box.
  void InWindow(const std::string& name, const std::string& button, std::function<void()> acts);
  // Whether a window lies in front of the main one that must be closed first.
  bool Covered() { return covered > 0; }
  void LeaveWindow(const std::string& name, const std::string& button);

  // --- The radio ---
  // Another radio on the line in the middle of everything.
  void Swap(const sim::SimRadioOptions& options);
  // The same one, switched off and on.
  void RestartRadio();

  // Runs until nothing is under way and nothing is asked for; false when that does not come.
  bool Settle(Duration limit);
  bool Idle();
  void CloseWindows();
  // The line works again.
  void Heal();
  // A second start of the program.
  void StartAgain();

  // --- What was seen since Mark ---
  const std::vector<TakenLine>& Taken() const { return taken; }
  // The values that a radio had of a setting, the first one included.
  const std::map<std::string, std::set<std::string>>& History() const { return history; }
  std::vector<std::string> BoxTexts() const;
  // Whether the user has been told anything but the usual boxes.
  bool Told(const std::set<std::string>& usual) const;
  // Texts that must not be readable, and those that were.
  std::set<std::string> Secrets;
  const std::set<std::string>& Leaks() const { return leaks; }
  void LookForSecrets(const std::string& where, std::string_view text);
  std::map<std::string, std::string> ShownRows();
  Tree Files() const;
  // The copies of radios, which stand in no Files; each with its content.
  Tree Copies() const;
  // Faults of the program that the bench reported.
  std::vector<std::string> Defects();

  std::filesystem::path Out(const std::string& name) const { return ScratchFolder() / name; }
  void WriteFile(const std::filesystem::path& path, std::string_view text) const;

  bool KeepsCopies = false;  // of radios; set before Begin
  bool Swapped = false;
  std::set<sim::Time> Broken;  // at these times a line was damaged on its way to the radio

 private:
  void TestBody() override {}
  std::optional<Duration> NextEvent() const override { return std::nullopt; }
  void Advance(Duration now) override;
  void FollowRadio();
  void NoteValues();

  ::testing::TestPartResultArray results;
  ::testing::ScopedFakeTestPartResultReporter reporter;
  std::vector<TakenLine> taken;
  std::map<std::string, std::set<std::string>> history;
  std::set<std::string> leaks;
  std::string lastTerminal;
  std::size_t firstBox = 0;
  bool told = false;
  int covered = 0;
  bool restarting = false;
};

// The words of all settings, each once.
const std::vector<std::string>& SettingWords();

// The radio's settings into another one of the same revision.
void CopySettings(const sim::SimRadio& from, sim::SimRadio& to);

// What a radio with these settings replies to a bare word: the text between echo and prompt.
std::map<std::string, std::string> Replies(const sim::SimRadio& radio);

}  // namespace quillmark::attack
