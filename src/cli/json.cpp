#include "cli/json.h"

#include "cli/utf8.h"

namespace quillmark {

std::string JsonText(std::string_view latin1) {
  constexpr const char* digits = "0123456789abcdef";
  std::string text = "\"";
  for (const char c : latin1) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 32 || byte == 127) {
      text += std::string("\\u00") + digits[byte >> 4] + digits[byte & 15];
    } else if (c == '"' || c == '\\') {
      text += std::string("\\") + c;
    } else {
      text += ToUtf8({&c, 1});
    }
  }
  return text + "\"";
}

std::string JsonOrNull(const std::optional<std::string>& latin1) {
  return latin1 ? JsonText(std::string_view(*latin1)) : "null";
}

std::string JsonBool(const std::optional<bool>& value) {
  return !value ? "null" : *value ? "true" : "false";
}

JsonObject& JsonObject::Add(std::string_view key, const std::string& json) {
  members += (members.empty() ? "" : ",") + JsonText(key) + ":" + json;
  return *this;
}

JsonArray& JsonArray::Add(const std::string& json) {
  members += (members.empty() ? "" : ",") + json;
  return *this;
}

}  // namespace quillmark
