#pragma once

#include <string>

#include "platform/preference_store.h"

namespace quillmark {

// The user's preferences for a run with a port named on the command line: that port, connected at
// once. What is written goes to the store.
class NamedPortPreferences : public PreferenceStore {
 public:
  NamedPortPreferences(PreferenceStore& kept, int portNumber) : store(kept), number(portNumber) {}

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) const override {
    if (section == "Properties" && key == "CommPort") return std::to_string(number);
    if (section == "Preferences" && key == "ConnectOnLaunch") return "True";
    return store.Read(section, key, fallback);
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    store.Write(section, key, value);
  }

 private:
  PreferenceStore& store;
  int number;
};

}  // namespace quillmark
