#include "attack/world.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "catalogue/settings.h"
#include "file_text.h"
#include "odd_settings.h"
#include "sim/sim_radio_table.h"
#include "sim/sim_words.h"

namespace quillmark::attack {

namespace fs = std::filesystem;
using sim::SimRadio;
using sim::SimRadioOptions;

namespace {

// The number in its name may hold a secret by chance.
std::string Without(const fs::path& folder, std::string_view text) {
  std::string rest(text);
  const std::string name = folder.string();
  for (auto at = rest.find(name); at != std::string::npos; at = rest.find(name, at)) {
    rest.replace(at, name.size(), "/");
  }
  return rest;
}

// What was expected is only for faultless runs.
bool IsUnmet(std::string_view report) {
  return report.starts_with("There never came") || report.starts_with("The radio never received");
}

}  // namespace

const std::vector<std::string>& SettingWords() {
  static const std::vector<std::string> words = [] {
    std::vector<std::string> all;
    for (const sim::RadioSetting& row : sim::SettingRows()) {
      if (all.empty() || all.back() != row.Word) all.emplace_back(row.Word);
    }
    return all;
  }();
  return words;
}

// Some are taken at a master only.
void CopySettings(const SimRadio& from, SimRadio& to) {
  to.Program("mode", "M");
  for (const std::string& word : SettingWords()) {
    if (word != "mode") to.Program(word, from.Setting(word));
  }
  to.Program("mode", from.Setting("mode"));
}

std::map<std::string, std::string> Replies(const SimRadio& radio) {
  SimRadioOptions options = radio.Options();
  options.Paced = false;
  options.ThinkTime = sim::Time(0);
  options.StartInLoader = options.StartInSetup = false;
  options.Revision = radio.Setting("srev");
  SimRadio copy(options);
  CopySettings(radio, copy);
  std::map<std::string, std::string> replies;
  sim::Time now{0};
  for (const Setting& setting : AllSettings()) {
    if (!setting.Read) continue;
    const std::string word = setting.Word;
    copy.Receive(now, word + "\r");
    now += std::chrono::seconds(1);
    const std::string reply = copy.Departed(now);
    const std::size_t start = word.size() + 2;
    const std::size_t end = reply.rfind("\r\n");
    replies[word] = end == std::string::npos || end < start ? "" : reply.substr(start, end - start);
  }
  return replies;
}

World::World()
    : reporter(::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ALL_THREADS, &results) {
  Random().Fixed = 0.5;
  TolerateBoxes();
  Events().AddSource(*this);
}

World::~World() { Events().RemoveSource(*this); }

void World::Begin(const SimRadioOptions& options, const std::string& ownName, bool connected) {
  if (KeepsCopies) Store("Preferences", "History", "True");
  UseRadio(options);
  ProgramOddValues(Radio());
  Radio().Program("own", ownName);
  Start();
  // A log costs half of the time: only where it could give something away.
  if (!Secrets.empty()) {
    ExpectSaveFile("Open a Communications Log File").Choose(Out("session.log"));
    ExpectBox("Open a Communications Log File").Reply(Answer::Yes);
    Press("tbr_OpenLogFile");
  }
  if (connected && !Connect()) ADD_FAILURE() << "The radio could not be connected and read";
}

void World::Mark() {
  taken.clear();
  history.clear();
  firstBox = Boxes().size();
  told = false;
  FollowRadio();
}

void World::FollowRadio() {
  NoteValues();
  Radio().OnLine = [this](const sim::ReceivedLine& line) {
    NoteValues();
    const bool own = line.text == "own " + Radio().Setting("own") ||
                     sim::SameWord(line.text, "addr " + Radio().Setting("addr"));
    taken.push_back({line.at, line.text, own});
  };
}

void World::NoteValues() {
  for (const std::string& word : SettingWords()) history[word].insert(Radio().Setting(word));
  for (const char* word : {"ser", "srev"}) history[word].insert(Radio().Setting(word));
}

bool World::Press(const std::string& name) {
  try {
    return !Ended() && Click(name);
  } catch (const std::invalid_argument&) {
    return false;
  }
}

bool World::Put(const std::string& name, const std::string& text) {
  try {
    return !Ended() && Edit(name, text);
  } catch (const std::invalid_argument&) {
    return false;
  }
}

bool World::Toggle(const std::string& name) {
  if (!Main().AdvancedShown) Press("ButtonAdv");
  return Press(name);
}

void World::InWindow(const std::string& name, const std::string& button,
                     std::function<void()> acts) {
  ExpectWindow(name).Do([this, name, button, acts = std::move(acts)] {
    ++covered;
    acts();
    LeaveWindow(name, button);
    --covered;
  });
}

void World::LeaveWindow(const std::string& name, const std::string& button) {
  constexpr int patience = 300;
  const std::string inWindow = std::string(name).append(".").append(button);
  for (int i = 0; i < patience && WindowOpen(name) && !Ended(); ++i) {
    // A button without effect gets no second chance.
    if (i % 2 == 1 || !Press(inWindow)) CloseWindow(name);
    if (WindowOpen(name)) Run(Milliseconds(500));
  }
}

void World::Swap(const SimRadioOptions& options) {
  Swapped = true;
  Broken.insert(Now());
  const bool plugged = Sockets().At(1).Is != sim::VirtualSockets::State::Empty;
  UseRadio(options);
  ProgramOddValues(Radio());
  Radio().Program("own", "Valley");
  Radio().Program("pwr", "24");
  FollowRadio();
  if (!plugged) Unplug();
}

void World::RestartRadio() {
  SimRadioOptions options = Radio().Options();
  options.StartInLoader = Radio().At() == sim::Level::Loader;
  options.Revision = Radio().Setting("srev");
  if (options.StartInLoader) options.Revision = Radio().Options().Revision;
  SimRadio before(options);
  CopySettings(Radio(), before);
  Broken.insert(Now());
  UseRadio(options);
  CopySettings(before, Radio());
  FollowRadio();
}

bool World::Idle() {
  return Ended() ||
         (Application().Talk().Turns.Idle() &&
          (!Port().PortOpen() || !Shared().RefreshRequested || Radio().At() == sim::Level::Loader));
}

bool World::Settle(Duration limit) {
  const Duration end = Now() + limit;
  while (!Ended() && Now() < end) {
    CloseWindows();
    RunUntil([this] { return Idle(); }, end - Now());
    Run(Seconds(3));
    if (Idle()) return true;
  }
  return Ended();
}

void World::CloseWindows() {
  for (const char* name : {"frmZoneQuality", "frmZoneData", "frmRSSI", "frmLogin", "frmSetPass",
                           "frmSetup", "frmRestore", "frmXMAP", "frmSimpleXMAP", "frmProgram"}) {
    if (WindowOpen(name)) CloseWindow(name);
  }
}

void World::Heal() {
  Faults() = {};
  Plug();
}

void World::StartAgain() {
  restarting = true;
  lastTerminal.clear();
  Restart();
  restarting = false;
}

bool World::Told(const std::set<std::string>& usual) const {
  const auto texts = BoxTexts();
  return told || std::any_of(texts.begin(), texts.end(),
                             [&](const std::string& text) { return !usual.contains(text); });
}

std::vector<std::string> World::BoxTexts() const {
  std::vector<std::string> texts;
  for (std::size_t i = firstBox; i < Boxes().size(); ++i) {
    std::string text = Boxes()[i].Title;
    text.append(": ").append(Boxes()[i].Text).append(Boxes()[i].Details);
    texts.push_back(std::move(text));
  }
  return texts;
}

void World::LookForSecrets(const std::string& where, std::string_view text) {
  for (const std::string& secret : Secrets) {
    if (text.find(secret) == std::string_view::npos) continue;
    if (Without(ScratchFolder(), text).find(secret) == std::string::npos) continue;
    leaks.insert(std::string(secret).append(" in ").append(where));
  }
}

void World::Advance(Duration) {
  if (restarting) return;
  const std::string& terminal = Main().txtTerm.Text();
  if (terminal == lastTerminal) return;
  lastTerminal = terminal;
  LookForSecrets("the terminal", terminal);
  for (const char* notice : {"not saved", "Error", "REFUSED", "failed"}) {
    if (terminal.find(notice) != std::string::npos) told = true;
  }
}

std::map<std::string, std::string> World::ShownRows() {
  std::map<std::string, std::string> shown;
  for (const SettingRow& row : Main().Rows) {
    if (row.What.Read && row.Shown()) shown[row.What.Word] = row.Text();
  }
  return shown;
}

std::vector<std::string> World::Defects() {
  CheckExpectations();
  std::vector<std::string> defects;
  for (int i = 0; i < results.size(); ++i) {
    const std::string_view report = results.GetTestPartResult(i).message();
    const std::size_t text = report.starts_with("Failed\n") ? 7 : 0;
    if (!IsUnmet(report.substr(text))) defects.emplace_back(report.substr(text));
  }
  return defects;
}

void World::WriteFile(const fs::path& path, std::string_view text) const {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

}  // namespace quillmark::attack
