#pragma once

#include <string_view>

#include "platform/dialogs.h"

namespace quillmark {

// Tells the user when the network address for a new radio can't be right; changes nothing.
void ValidateNewAddr(Dialogs& dialogs, std::string_view text);

}  // namespace quillmark
