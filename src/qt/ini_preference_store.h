#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/preference_store.h"
#include "qt/ini_file.h"

namespace quillmark {

// The user's preferences in an INI file that a person can read and edit; its groups are the
// sections. Each write reads the file again first, under a lock, so that two consoles keep each
// other's keys. A damaged file gives the defaults and is kept beside as ".bak" when the first write
// replaces it. Trouble with the file is told once on stderr and never stops the program.
class IniPreferenceStore : public PreferenceStore {
 public:
  struct Entry {
    std::string Section;
    std::string Key;
    std::string Value;
  };

  explicit IniPreferenceStore(std::filesystem::path file);
  // preferences.ini in the program's folder under $XDG_CONFIG_HOME, else ~/.config.
  static std::filesystem::path UsualFile();

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) const override;
  void Write(const std::string& section, const std::string& key, const std::string& value) override;

  // The same with UTF-8 texts, for paths: several entries in one write.
  std::string ReadPath(const std::string& section, const std::string& key) const;
  void WritePaths(const std::vector<Entry>& entries);
  // Takes in what another program, or a person, has changed since.
  void Reload();

 private:
  bool Save(const std::string& text);
  void KeepDamagedFile();
  void Complain(const std::string& what);

  std::filesystem::path file;
  IniFile ini;
  bool complained = false;
};

}  // namespace quillmark
