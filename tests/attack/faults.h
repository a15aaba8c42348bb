#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "attack/operations.h"

namespace quillmark::attack {

// What a faultless run of an operation did, from its first act until all was quiet.
struct Measured {
  std::int64_t ToHost = 0;  // bytes
  std::int64_t ToRadio = 0;
  std::int64_t Commands = 0;
  Duration Took{};
  std::set<std::string> Lines;  // that the radio took
  Tree Files;                   // those that it made or changed
  std::vector<std::string> Prints;
  std::set<std::string> Boxes;
};

// One case: where and when its fault strikes.
struct Blow {
  World& Bench;
  const Operation& Struck;
  const Measured& Whole;
  unsigned Seed;  // from 1
  std::mt19937 Random;
  const Operation* Second = nullptr;  // what the user does in the middle

  // From 1 to `length`; as many seeds meet each place once.
  std::int64_t Place(std::int64_t length) const;
  std::int64_t Between(std::int64_t least, std::int64_t most);
  // At a moment of the run.
  void Meanwhile(std::function<void()> act);
};

// What goes wrong, as rows: a new fault is a new row.
struct Fault {
  enum class Damage { None, ByteToHost, ByteToRadio, Noise };

  const char* Name;
  void (*Strike)(Blow& blow) = nullptr;                                 // when the operation begins
  void (*Before)(sim::SimRadioOptions& options, Blow& blow) = nullptr;  // before the start
  Damage Damages = Damage::None;
  bool NeedsFile = false;  // only for operations that write one
  bool Leaves = false;     // the user gives up: nobody has to be told
};

std::span<const Fault> Faults();

}  // namespace quillmark::attack
