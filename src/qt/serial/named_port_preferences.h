#pragma once

#include <optional>
#include <string>

#include "platform/preference_store.h"

namespace quillmark {

// The user's preferences for a run with a port named on the command line: that port, connected at
// once. What the user chooses goes to the store; what the command line says never does.
class NamedPortPreferences : public PreferenceStore {
 public:
  NamedPortPreferences(PreferenceStore& kept, int portNumber) : store(kept), number(portNumber) {}

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) const override {
    const auto named = Named(section, key);
    return named ? *named : store.Read(section, key, fallback);
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    // A window writes all that it shows, also what nobody has changed.
    if (Named(section, key) != value) store.Write(section, key, value);
  }

 private:
  std::optional<std::string> Named(const std::string& section, const std::string& key) const {
    if (section == "Properties" && key == "CommPort") return std::to_string(number);
    if (section == "Preferences" && key == "ConnectOnLaunch") return "True";
    return std::nullopt;
  }

  PreferenceStore& store;
  int number;
};

}  // namespace quillmark
