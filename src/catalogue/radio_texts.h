#pragma once

#include <map>
#include <string>

#include "catalogue/setting.h"

namespace quillmark {

// What a radio has said of its settings: the text of each reply, without echo and prompt. A setting
// that it was not asked for, or gave no value for, is missing.
using RadioTexts = std::map<SettingId, std::string>;

}  // namespace quillmark
