#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "history/copy_store.h"

namespace quillmark {

// The folder of the radio's copies, by its serial number: "00123456" or "SN 00123456". Throws
// Failure when there are none.
std::string CopiesOf(const CopyStore& store, const std::string& serial);

// A copy that can be programmed.
struct ChosenCopy {
  std::filesystem::path File;
  std::string Time;  // the name of its file, in UTC: "2026-11-23_15-04-05"
  RadioCopy Copy;
};

// The newest copy at or before `date`, which is such a time in UTC, or begins as one: "2026-11-23"
// takes the whole day in. Blanks, "T" and ":" may stand in it too. Only what lies in the radio's
// folder counts, and no link is followed. Throws Failure.
ChosenCopy CopyAt(const CopyStore& store, const std::string& serial, const std::string& date);

}  // namespace quillmark
