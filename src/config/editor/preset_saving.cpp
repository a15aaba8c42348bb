#include "config/editor/preset_saving.h"

#include <string_view>
#include <system_error>

#include "config/presets/preset_file.h"
#include "config/replaced_file.h"
#include "platform/utilities.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr const char* title = "Save As Preset";
constexpr std::size_t longestCaption = 12;

std::optional<std::size_t> SlotIn(std::string_view answer) {
  const std::string_view digit = Trim(answer);
  for (std::size_t slot = 0; slot < PresetSlots; ++slot) {
    if (digit == std::to_string(slot + 1)) return slot;
  }
  return std::nullopt;
}

std::string CheckNumber(std::string_view answer) {
  return SlotIn(answer) ? "" : "Presets have the numbers 1 to 6.";
}

std::string CheckCaption(std::string_view answer) {
  return answer.size() <= longestCaption ? ""
                                         : "The button shows the first 12 characters, and no more.";
}

// The first number without a file, or 1.
std::string OfferedNumber(const ProgramFiles& files) {
  for (std::size_t slot = 0; slot < PresetSlots; ++slot) {
    if (!FileExists(PresetFile(files, slot))) return std::to_string(slot + 1);
  }
  return "1";
}

std::optional<std::size_t> AskSlot(Platform& platform) {
  std::string offered = OfferedNumber(platform.Files);
  for (;;) {
    const std::string answer = platform.Dialogs.Input({.Prompt = "Number of the preset, 1 to 6:",
                                                       .Title = title,
                                                       .Default = offered,
                                                       .Check = CheckNumber});
    if (answer.empty()) return std::nullopt;
    if (const auto slot = SlotIn(answer)) return slot;
    offered = answer;
  }
}

bool MayReplace(Platform& platform, std::size_t slot) {
  const std::filesystem::path file = PresetFile(platform.Files, slot);
  if (!FileExists(file)) return true;
  const auto place = ReadPresetPlace(file);
  const std::string caption = place ? " (" + place->Header.Caption + ")" : "";
  return platform.Dialogs.Message(
             {.Text = "Replace preset " + std::to_string(slot + 1) + caption + " ?",
              .Title = title,
              .Symbol = Icon::Question,
              .Choice = Buttons::YesNo,
              .Details = "The old file is kept beside the new one, as .bak."}) == Answer::Yes;
}

}  // namespace

std::optional<std::size_t> SaveAsPreset(Platform& platform, const std::vector<std::string>& lines) {
  const auto slot = AskSlot(platform);
  if (!slot || !MayReplace(platform, *slot)) return std::nullopt;
  const std::string caption = platform.Dialogs.Input({.Prompt = "Caption of the preset's button:",
                                                      .Title = title,
                                                      .Default = {},
                                                      .Check = CheckCaption});
  if (caption.empty()) return std::nullopt;
  try {
    std::error_code ignored;
    std::filesystem::create_directories(PresetFolder(platform.Files), ignored);
    WritePreset(PresetFile(platform.Files, *slot), *slot,
                {caption, caption.substr(0, longestCaption)}, lines);
  } catch (const FileError& error) {
    platform.Dialogs.Message({std::string("The preset was not saved.\r\n\r\n") + error.what(),
                              "File Error", Icon::Exclamation});
    return std::nullopt;
  }
  return slot;
}

}  // namespace quillmark
