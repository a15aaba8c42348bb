#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace quillmark::fuzz {

// A reader of foreign text that must bear any bytes: `Feed` gives it one input, checks what must
// hold of every answer, and aborts when it does not. A new target is a new row in the table.
struct Target {
  const char* Name;
  void (*Feed)(std::string_view input);
  std::vector<std::string_view> Seeds;  // sound inputs, from which others are made
};

std::span<const Target> Targets();

// Aborts with the broken promise on stderr.
void Check(bool holds, const char* promise);

// The readers, by where they live.
void FeedReply(std::string_view input);         // a reply to a setting's word
void FeedSavedSetting(std::string_view input);  // the same for a line of a file
void FeedZones(std::string_view input);
void FeedReceived(std::string_view input);  // through the whole console
void FeedConfigFile(std::string_view input);
void FeedCopy(std::string_view input);  // of what a radio held
void FeedPresetFile(std::string_view input);
void FeedFirmware(std::string_view input);
void FeedIniFile(std::string_view input);

}  // namespace quillmark::fuzz
