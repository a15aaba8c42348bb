#include "attack/attack_case.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>

#include "history/radio_copy.h"

namespace quillmark::attack {

namespace {

constexpr Duration longest = Seconds(1800);

sim::SimRadioOptions RadioOf(const Operation& operation) {
  sim::SimRadioOptions options;
  options.Mode = operation.Mode;
  options.Password = operation.Password;
  return options;
}

void Begin(World& world, const Operation& operation, const sim::SimRadioOptions& options) {
  std::filesystem::create_directories(world.Out("out"));
  if (operation.Prepare != nullptr) operation.Prepare(world);
  if (*operation.Secret != '\0') world.Secrets.insert(operation.Secret);
  world.Begin(options, operation.OwnName, operation.Connected);
  world.Run(Seconds(2));
  world.Mark();
}

void Add(Meant& meant, const Operation& operation, const Measured& of) {
  if (operation.MayOmitLines) meant.WithGaps.insert(operation.Target);
  meant.Lines.insert(of.Lines.begin(), of.Lines.end());
  for (const auto& [path, text] : of.Files) meant.Files.emplace(path, text);
  meant.Prints.insert(meant.Prints.end(), of.Prints.begin(), of.Prints.end());
  meant.Boxes.insert(of.Boxes.begin(), of.Boxes.end());
}

// The user looks after what was left: plugs in, connects, and loads the firmware of a radio that
// has none.
void Repair(World& world, Findings& findings) {
  world.Heal();
  if (world.Ended()) world.StartAgain();
  if (!world.Settle(longest)) findings.push_back("it never came to rest after the healing");
  const auto connect = [&world] {
    if (!world.Enabled("tbr_Connect")) world.Press("tbr_Disconnect");
    return world.Connect();
  };
  bool connected = connect();
  if (!connected && world.Radio().At() == sim::Level::Loader) {
    world.Settle(longest);
    FindOperation("upgrade")->Run(world);
    world.Settle(longest);
    connected = world.Radio().At() != sim::Level::Loader && connect();
  }
  if (!connected) findings.push_back("it could not be connected after the healing");
  if (!world.Settle(longest)) findings.push_back("it never came to rest after the connect");
  if (connected) JudgeHealed(world, findings);
}

void JudgeSecrets(World& world, Findings& findings) {
  for (const Tree& tree : {world.Files(), world.Copies()}) {
    for (const auto& [path, text] : tree) world.LookForSecrets(path, text);
  }
  for (const std::string& text : world.BoxTexts()) world.LookForSecrets("a box", text);
  world.LookForSecrets("the status", world.Text("pnl_Status"));
  for (const std::string& leak : world.Leaks()) findings.push_back("a secret can be read: " + leak);
}

// A copy is there whole or not at all.
void JudgeCopies(const World& world, Findings& findings) {
  for (const auto& [path, text] : world.Copies()) {
    if (ReadCopy(path).State == CopyState::Sound) continue;
    findings.push_back("this is no sound copy: " + path);
    findings.back().append(": ").append(text);
  }
}

// The byte on its way to the radio that the fault has damaged: when it arrived.
void NoteBrokenByte(World& world) {
  const sim::LineFaults& faults = world.Faults();
  const auto& times = world.Line().Log().ToRadio().Times;
  for (const auto at : {faults.DropToRadio, faults.GarbleToRadio, faults.DoubleToRadio}) {
    const auto index = static_cast<std::size_t>(at) - 1;
    if (at > 0 && index < times.size()) world.Broken.insert(times[index]);
  }
}

}  // namespace

const Measured& Attack::Measure(const Operation& operation) {
  const auto known = measured.find(operation.Name);
  if (known != measured.end()) return known->second;
  Measured& of = measured[operation.Name];
  World world;
  world.KeepsCopies = keepsCopies;
  Begin(world, operation, RadioOf(operation));
  const Tree before = world.Files();
  const Duration began = world.Now();
  const auto toHost = world.Line().Log().ToHost().Times.size();
  const auto toRadio = world.Line().BytesToRadio();
  const auto commands = world.Radio().CommandCount();
  operation.Run(world);
  world.Settle(longest);
  of.Took = std::max(world.Now() - began - Seconds(3), Duration(Milliseconds(1)));
  of.ToHost = static_cast<std::int64_t>(world.Line().Log().ToHost().Times.size() - toHost);
  of.ToRadio = world.Line().BytesToRadio() - toRadio;
  of.Commands = world.Radio().CommandCount() - commands;
  for (const TakenLine& line : world.Taken()) of.Lines.insert(line.Text);
  for (const auto& [path, text] : world.Files()) {
    const auto old = before.find(path);
    const bool made = old == before.end() || old->second != text;
    if (made && text != "(folder)" && path != "session.log" && !path.starts_with("in")) {
      of.Files[path] = text;
    }
  }
  for (const auto& print : world.DesktopSeen().Prints) of.Prints.push_back(print.Text);
  const auto boxes = world.BoxTexts();
  of.Boxes.insert(boxes.begin(), boxes.end());
  return of;
}

Findings Attack::Run(const Operation& operation, const Fault& fault, unsigned seed) {
  const Measured& whole = Measure(operation);
  World world;
  world.KeepsCopies = keepsCopies;
  std::seed_seq mixed{seed, static_cast<unsigned>(std::hash<std::string>{}(operation.Name)),
                      static_cast<unsigned>(std::hash<std::string>{}(fault.Name))};
  Blow blow{.Bench = world,
            .Struck = operation,
            .Whole = whole,
            .Seed = seed,
            .Random = std::mt19937(mixed)};
  sim::SimRadioOptions options = RadioOf(operation);
  if (fault.Before != nullptr) fault.Before(options, blow);
  Begin(world, operation, options);
  if (fault.Strike != nullptr) fault.Strike(blow);
  Meant meant;
  Add(meant, operation, whole);
  if (blow.Second != nullptr) Add(meant, *blow.Second, Measure(*blow.Second));
  const auto rows = world.ShownRows();
  const Tree files = world.Files();
  Findings findings;
  operation.Run(world);
  if (!world.Settle(longest)) findings.push_back("it never came to rest");
  NoteBrokenByte(world);
  JudgeEnd(world, findings);
  JudgeRadio(world, meant, findings);
  if (!world.Ended()) JudgeRows(world, fault, rows, findings);
  JudgeFiles(world, fault, meant, files, findings);
  JudgeCopies(world, findings);
  if (*fault.Name == 'n' && operation.Succeeded != nullptr &&
      std::string_view(fault.Name) == "none" && !operation.Succeeded(world)) {
    findings.push_back("without a fault its work was not done");
  }
  Repair(world, findings);
  JudgeSecrets(world, findings);
  for (const std::string& defect : world.Defects()) findings.push_back("defect: " + defect);
  return findings;
}

}  // namespace quillmark::attack
