#pragma once

#include <string>
#include <string_view>

#include "catalogue/setting.h"

namespace quillmark {

// What a radio's reply to the question for a setting becomes: the text of its row in the main
// window, and the text that a file holds. The value is what Conversation::Ask has cut out of it.

// The text of a row whose setting the radio does not have in its mode, or refuses.
inline constexpr const char* NotAvailable = "NOT AVAILABLE";

// `setting` is read by the main window.
std::string RowText(const Setting& setting, const std::string& value);

// A row shows a value up to a ">"; a file holds all of it. `received` is the whole reply.
std::string UncutText(const Setting& setting, const std::string& value, std::string_view received);

}  // namespace quillmark
