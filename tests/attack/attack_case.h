#pragma once

#include <map>
#include <string>

#include "attack/oracle.h"

namespace quillmark::attack {

// Runs the cases of the attack. Keeps what faultless runs did; one for each process.
class Attack {
 public:
  // `keepsCopies`: the console keeps copies of what radios hold, as it does for its users.
  explicit Attack(bool keepsCopies) : keepsCopies(keepsCopies) {}

  // Findings of one case; none when all is well. Seeds count from 1.
  Findings Run(const Operation& operation, const Fault& fault, unsigned seed);
  // Measured once.
  const Measured& Measure(const Operation& operation);

 private:
  bool keepsCopies;
  std::map<std::string, Measured> measured;
};

}  // namespace quillmark::attack
