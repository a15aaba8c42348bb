#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "attack/faults.h"

namespace quillmark::attack {

using Findings = std::vector<std::string>;

// What an operation may do: the faultless runs of it and of what the user did in the middle.
struct Meant {
  std::set<std::string> Lines;
  Tree Files;
  std::vector<std::string> Prints;
  std::set<std::string> Boxes;
  std::set<std::string> WithGaps;  // files that may lack lines
};

// Each judges one thing after a case and adds a sentence for each fault that it finds.

// The radio took no line that changes something but those that were meant, and it holds only what
// those made of it.
void JudgeRadio(const World& world, const Meant& meant, Findings& findings);

// The rows that can be seen hold a whole reply of their own: one that the radio gave, or what they
// showed before.
void JudgeRows(World& world, const Fault& fault, const std::map<std::string, std::string>& before,
               Findings& findings);

// Each file is whole and true, or as it was, or shortened with the old one beside it and the user
// told.
void JudgeFiles(World& world, const Fault& fault, const Meant& meant, const Tree& before,
                Findings& findings);

// Nothing is under way any more, and the radio echoes.
void JudgeEnd(World& world, Findings& findings);

// After the line has been healed and the radio read: every row is what the radio says.
void JudgeHealed(World& world, Findings& findings);

}  // namespace quillmark::attack
