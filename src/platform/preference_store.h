#pragma once

#include <string>
#include <vector>

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

  // A key and its value.
  struct Entry {
    std::string Section;
    std::string Key;
    std::string Value;
  };
  // The same for paths, as the bytes of their names; several entries in one write. Without such a
  // key the path is empty.
  virtual std::string ReadPath(const std::string& section, const std::string& key) const = 0;
  virtual void WritePaths(const std::vector<Entry>& entries) = 0;
};

}  // namespace quillmark
