#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/preference_store.h"

namespace quillmark {

// The user's preferences for a run with some of them named on the command line. What the user
// chooses goes to the store, and from then on holds in place of what the command line says, which
// never goes there.
class RunPreferences : public PreferenceStore {
 public:
  // `kept` outlives it.
  RunPreferences(PreferenceStore& kept, std::vector<Entry> named)
      : store(kept), entries(std::move(named)) {}

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) const override {
    const Entry* named = Named(section, key);
    return named != nullptr ? named->Value : store.Read(section, key, fallback);
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    // A window writes all that it shows, also what nobody has changed.
    const Entry* named = Named(section, key);
    if (named != nullptr && named->Value == value) return;
    if (named != nullptr) entries.erase(entries.begin() + (named - entries.data()));
    store.Write(section, key, value);
  }
  std::string ReadPath(const std::string& section, const std::string& key) const override {
    return store.ReadPath(section, key);
  }
  void WritePaths(const std::vector<Entry>& paths) override { store.WritePaths(paths); }

 private:
  const Entry* Named(const std::string& section, const std::string& key) const {
    const auto found = std::ranges::find_if(
        entries, [&](const Entry& entry) { return entry.Section == section && entry.Key == key; });
    return found == entries.end() ? nullptr : &*found;
  }

  PreferenceStore& store;
  std::vector<Entry> entries;
};

}  // namespace quillmark
