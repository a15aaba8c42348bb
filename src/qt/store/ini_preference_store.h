#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/preference_store.h"
#include "qt/store/ini_file.h"

namespace quillmark {

// The user's preferences in an INI file that they can read and edit; its groups are the sections.
// Each write reads the file again first, under a lock, so that two consoles keep each
// other's keys. A damaged file gives the defaults and is kept beside under a free ".bak" name when
// the first write replaces it; one that cannot be read is left as it is. What could not be saved is
// kept, and saved with the next write that succeeds. Trouble never stops the program; each kind is
// told once, on stderr and to whoever listens.
class IniPreferenceStore : public PreferenceStore {
 public:
  // For the user: what is wrong with the file; what follows and what to do. Both are Latin-1.
  struct Trouble {
    std::string Text;
    std::string Details;
  };

  // Where what is written goes: into the file, or nowhere but into this object.
  enum class Writes { ToFile, ToMemory };

  explicit IniPreferenceStore(std::filesystem::path file, Writes writes = Writes::ToFile);
  // preferences.ini in the program's folder under $XDG_CONFIG_HOME, else ~/.config. There must be
  // such a folder.
  static std::filesystem::path UsualFile();

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) const override;
  void Write(const std::string& section, const std::string& key, const std::string& value) override;

  // Texts and names in UTF-8.
  std::string ReadPath(const std::string& section, const std::string& key) const override;
  void WritePaths(const std::vector<Entry>& entries) override;
  // Takes in what another program, or the user, has changed since; what is not saved yet stays.
  void Reload();

  // `listener` is told of all trouble so far, and of any other as soon as it comes.
  void TellTroubles(std::function<void(const Trouble&)> listener);

 private:
  // What can be wrong with the file.
  enum class Kind { Damaged, Unreadable, Unwritable };
  static constexpr std::size_t kinds = 3;
  static_assert(static_cast<std::size_t>(Kind::Unwritable) + 1 == kinds);
  struct Wording;
  static const Wording wordings[kinds];

  bool ReadFile();
  void ApplyUnsaved();
  void NoteUnsaved(const Entry& entry);
  bool Save(const std::string& text);
  bool KeepDamagedFile();
  void Complain(Kind kind);
  void Tell(Kind kind) const;

  std::filesystem::path file;
  Writes writes;
  IniFile ini;
  std::vector<Entry> unsaved;  // newer than the file, and part of `ini`
  std::array<bool, kinds> complained{};
  std::function<void(const Trouble&)> onTrouble;
  bool lockIsForeign = false;  // the lock could not be had the last time
};

}  // namespace quillmark
