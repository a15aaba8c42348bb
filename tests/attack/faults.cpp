#include "attack/faults.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <numeric>
#include <utility>

namespace quillmark::attack {

namespace fs = std::filesystem;

using sim::LineFaults;

namespace {

using Damage = Fault::Damage;

std::int64_t ByteToHost(Blow& blow) {
  const auto before = static_cast<std::int64_t>(blow.Bench.Line().Log().ToHost().Times.size());
  return before + blow.Place(blow.Whole.ToHost);
}
std::int64_t ByteToRadio(Blow& blow) {
  return blow.Bench.Line().BytesToRadio() + blow.Place(blow.Whole.ToRadio);
}
std::int64_t Command(Blow& blow) {
  return blow.Bench.Radio().CommandCount() + blow.Place(blow.Whole.Commands);
}
std::int64_t& Of(Blow& blow, std::int64_t LineFaults::*field) { return blow.Bench.Faults().*field; }

template <auto field>
void AtByteToHost(Blow& blow) {
  Of(blow, field) = ByteToHost(blow);
}
template <auto field>
void AtByteToRadio(Blow& blow) {
  Of(blow, field) = ByteToRadio(blow);
}
template <auto field>
void AtCommand(Blow& blow) {
  Of(blow, field) = Command(blow);
}

void FallSilentForAWhile(Blow& blow) {
  LineFaults& faults = blow.Bench.Faults();
  faults.SilentFrom = Command(blow);
  faults.SilentUntil = faults.SilentFrom + blow.Between(0, 3);
}

void AnswerLate(Blow& blow) {
  blow.Bench.Faults().LateReplyAt = Command(blow);
  blow.Bench.Faults().LateReplyMs = blow.Between(150, 2000);
}

void Babble(Blow& blow) {
  LineFaults& faults = blow.Bench.Faults();
  faults.BabbleSeed = blow.Seed;
  blow.Meanwhile([&faults, rate = blow.Between(2, 60)] { faults.BabblePerSecond = rate; });
  blow.Bench.After(blow.Whole.Took + Seconds(1), [&faults] { faults.BabblePerSecond = 0; });
}

// All of the radio or its loader alone; some echo in turn with their replies, some act late.
void SlowDown(sim::SimRadioOptions& options, Blow& blow) {
  const auto thinkTime = std::chrono::milliseconds(blow.Between(5, 400));
  const auto way = blow.Between(0, 3);
  if (way == 3) {
    options.Loader.ThinkTime = thinkTime;
  } else {
    options.ThinkTime = thinkTime;
  }
  options.EchoesInTurn = way == 1;
  options.ActsLate = way == 2;
}

void SwapRadio(Blow& blow) {
  const char* const revisions[] = {"1.9.0", "2.0.0", "3.0.0", "3.2.0"};
  sim::SimRadioOptions options = blow.Bench.Radio().Options();
  options.Revision = revisions[blow.Between(0, 3)];
  options.Mode = "MRX"[blow.Between(0, 2)];
  options.SerialNumber = "00777888";
  blow.Meanwhile([&world = blow.Bench, options] { world.Swap(options); });
}

// In the middle the user does something else as well.
void DoAlso(Blow& blow, std::initializer_list<const char*> names) {
  const char* name = names.begin()[blow.Between(0, static_cast<int>(names.size()) - 1)];
  blow.Second = FindOperation(name);
  blow.Meanwhile([&world = blow.Bench, second = blow.Second] {
    // Behind a window that must be closed first there is nothing to click.
    if (!world.Covered()) second->Run(world);
  });
}

void Block(Blow& blow, bool parent) {
  const fs::path target = blow.Bench.ScratchFolder() / blow.Struck.Target;
  const fs::path blocked = parent ? target.parent_path() : target;
  fs::remove_all(blocked);
  if (parent) {
    blow.Bench.WriteFile(blocked, "in the way");
  } else {
    fs::create_directories(blocked);
  }
}

// clang-format off
constexpr Fault faults[] = {
    {.Name = "none"},
    {.Name = "drop-to-host", .Strike = AtByteToHost<&LineFaults::DropToHost>, .Damages = Damage::ByteToHost},
    {.Name = "garble-to-host", .Strike = AtByteToHost<&LineFaults::GarbleToHost>, .Damages = Damage::ByteToHost},
    {.Name = "double-to-host", .Strike = AtByteToHost<&LineFaults::DoubleToHost>, .Damages = Damage::ByteToHost},
    {.Name = "drop-to-radio", .Strike = AtByteToRadio<&LineFaults::DropToRadio>, .Damages = Damage::ByteToRadio},
    {.Name = "garble-to-radio", .Strike = AtByteToRadio<&LineFaults::GarbleToRadio>, .Damages = Damage::ByteToRadio},
    {.Name = "double-to-radio", .Strike = AtByteToRadio<&LineFaults::DoubleToRadio>, .Damages = Damage::ByteToRadio},
    {.Name = "unplug-to-host", .Strike = AtByteToHost<&LineFaults::HangUpAtByteToHost>},
    {.Name = "unplug-to-radio", .Strike = AtByteToRadio<&LineFaults::HangUpAtByteToRadio>},
    {.Name = "silence", .Strike = AtCommand<&LineFaults::SilentFrom>},
    {.Name = "short-silence", .Strike = FallSilentForAWhile},
    {.Name = "late-reply", .Strike = AnswerLate},
    {.Name = "no-prompt", .Strike = AtCommand<&LineFaults::NoPromptAt>},
    {.Name = "extra-bytes", .Strike = AtCommand<&LineFaults::ExtraBytesAt>, .Damages = Damage::Noise},
    {.Name = "doubled-reply", .Strike = AtCommand<&LineFaults::DoubleReplyAt>},
    {.Name = "noise", .Strike = Babble, .Damages = Damage::Noise},
    {.Name = "slow-radio", .Before = SlowDown},
    {.Name = "restart", .Strike = [](Blow& b) { b.Meanwhile([&w = b.Bench] { w.RestartRadio(); }); }},
    {.Name = "swap", .Strike = SwapRadio},
    {.Name = "other-row", .Strike = [](Blow& b) { DoAlso(b, {"message"}); }},
    {.Name = "refresh", .Strike = [](Blow& b) { DoAlso(b, {"read"}); }},
    {.Name = "other-task", .Strike = [](Blow& b) { DoAlso(b, {"save", "remote", "print"}); }},
    {.Name = "typing", .Strike = [](Blow& b) { DoAlso(b, {"typed"}); }},
    {.Name = "other-window", .Strike = [](Blow& b) { DoAlso(b, {"login-cancel", "restore-read", "zone-data", "setup-key"}); }},
    {.Name = "disconnect", .Strike = [](Blow& b) { b.Meanwhile([&w = b.Bench] { w.Press("tbr_Disconnect"); }); }, .Leaves = true},
    {.Name = "quit", .Strike = [](Blow& b) { b.Meanwhile([&w = b.Bench] { w.Quit(); }); }, .Leaves = true},
    {.Name = "end-signal", .Strike = [](Blow& b) { b.Meanwhile([&w = b.Bench] { w.Application().Form_Unload(); }); }, .Leaves = true},
    {.Name = "no-folder", .Strike = [](Blow& b) { Block(b, true); }, .NeedsFile = true},
    {.Name = "folder-in-place", .Strike = [](Blow& b) { Block(b, false); }, .NeedsFile = true},
};
// clang-format on

}  // namespace

std::span<const Fault> Faults() { return faults; }

std::int64_t Blow::Place(std::int64_t length) const {
  if (length <= 1) return 1;
  // A step without a common divisor, near the golden section: neighbouring seeds lie far apart.
  std::int64_t step = length * 618 / 1000 + 1;
  while (std::gcd(step, length) != 1) ++step;
  return 1 + (Seed * step) % length;
}

std::int64_t Blow::Between(std::int64_t least, std::int64_t most) {
  const auto choices = static_cast<std::uint64_t>(most - least + 1);
  return least + static_cast<std::int64_t>(Random() % choices);
}

void Blow::Meanwhile(std::function<void()> act) {
  Bench.After(Milliseconds(Place(Whole.Took / Milliseconds(1))), std::move(act));
}

}  // namespace quillmark::attack
