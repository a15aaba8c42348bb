#pragma once

#include <span>
#include <string_view>

#include "attack/world.h"

namespace quillmark::attack {

// What a user does with the program, as rows: a new operation is a new row. `Run` does the acts and
// returns; windows that come up are left again. It must bear that an act can't be done.
struct Operation {
  const char* Name;
  void (*Run)(World& world);
  char Mode = 'M';
  bool Connected = true;                      // begins with a radio that has been read
  const char* Password = "";                  // the radio's
  const char* Secret = "";                    // what is typed and must never be seen
  void (*Prepare)(World& world) = nullptr;    // before the start
  const char* Target = "";                    // the file that it writes, in the scratch folder
  bool MayOmitLines = false;                  // a row without a value has no line
  const char* OwnName = "Hill north";         // the radio's
  bool (*Succeeded)(World& world) = nullptr;  // whether a faultless run has done its work
};

std::span<const Operation> Operations();
const Operation* FindOperation(std::string_view name);

}  // namespace quillmark::attack
