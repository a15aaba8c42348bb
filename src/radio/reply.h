#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// The prompt that ends a reply.
std::string_view Prompt(bool inSetupMode);

// The text between the echo of `word` and the prompt that follows it, less the line end at each
// side. Nothing when the echo or the prompt is missing, or nothing is left between them.
std::optional<std::string> CutReply(std::string_view received, std::string_view word,
                                    bool inSetupMode);

// How many prompts stand in the text.
int CountPrompts(std::string_view received, bool inSetupMode);

}  // namespace quillmark
