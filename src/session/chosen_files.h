#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/platform.h"

namespace quillmark {

// The files that the user chooses. The dialogs of a kind open in the folder of the file that was
// chosen last, and the configurations that were used last are remembered. Both are kept with the
// preferences.

enum class FileKind { Configuration, Log, Firmware, Print };

// The dialog, opened in the folder of its kind. Nothing on Cancel.
std::optional<std::filesystem::path> ChooseToOpen(Platform& platform, FileKind kind,
                                                  FileDialog dialog);
std::optional<std::filesystem::path> ChooseToSave(Platform& platform, FileKind kind,
                                                  FileDialog dialog);
// Where `file` is to be printed.
std::optional<PrintTarget> ChooseToPrint(Platform& platform, const std::filesystem::path& file);

// How many configurations are remembered.
inline constexpr std::size_t MostRecentFiles = 8;
// A configuration has been opened or saved: it heads the list.
void NoteConfiguration(PreferenceStore& store, const std::filesystem::path& file);
// The newest first. They may be gone meanwhile.
std::vector<std::filesystem::path> RecentConfigurations(const PreferenceStore& store);

}  // namespace quillmark
