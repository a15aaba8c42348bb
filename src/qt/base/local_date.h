#pragma once

#include <string>

namespace quillmark {

// Today's date in the short form of the user's locale, in the radio's alphabet.
std::string LocalShortDate();

}  // namespace quillmark
