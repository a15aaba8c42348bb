#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogs.h"

namespace quillmark {

// What the head of a firmware file tells, and the questions that a new version raises beside the
// installed one. The firmware upgrade asks them; nothing here does.

// How much of a file ReadFirmwareHeader wants to see.
constexpr std::size_t FirmwareHeaderLength = 60;  // bytes

// What the head of a firmware file says.
struct FirmwareHeader {
  bool IsHeaderRecord = false;  // it begins as a file of S-records does
  bool IsForThisRadio = false;  // by the part number in it
  std::string Version;          // five characters such as 3.2.0; fewer where the file is shorter
};

FirmwareHeader ReadFirmwareHeader(std::string_view head);

// Each wants a Yes before the upgrade may go on, in this order. Versions are five characters of
// which the first, third and fifth carry meaning, a letter among them marks an alpha version; an
// installed one that is empty is unknown and raises nothing by itself.
std::vector<MessageBox> VersionQuestions(const std::string& installed, const std::string& next);

}  // namespace quillmark
