#pragma once

#include <string>

namespace quillmark {

// The user's stored preferences: text by section and key, kept between runs. Neither call throws;
// a store that cannot be read gives the defaults.
class PreferenceStore {
 public:
  virtual ~PreferenceStore() = default;

  virtual std::string Read(const std::string& section, const std::string& key,
                           const std::string& fallback) const = 0;
  virtual void Write(const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

}  // namespace quillmark
