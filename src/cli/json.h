#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// JSON as text. Texts given are Latin-1, and come out in UTF-8.
std::string JsonText(std::string_view latin1);
std::string JsonOrNull(const std::optional<std::string>& latin1);  // or null
std::string JsonBool(const std::optional<bool>& value);            // or null

// An object or an array that grows: values are JSON already.
class JsonObject {
 public:
  JsonObject& Add(std::string_view key, const std::string& json);
  std::string Text() const { return "{" + members + "}"; }

 private:
  std::string members;
};

class JsonArray {
 public:
  JsonArray& Add(const std::string& json);
  std::string Text() const { return "[" + members + "]"; }

 private:
  std::string members;
};

}  // namespace quillmark
