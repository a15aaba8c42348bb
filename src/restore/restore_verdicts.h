#pragma once

#include <string>

#include "catalogue/bounds.h"
#include "restore/restore_rows.h"

namespace quillmark {

// What is wrong with the first command that programs a row's new text, if anything. The mode is not
// judged: rows that the radio's mode does not take can't be ticked.
Verdict JudgeRow(const RestoreRow& row, const std::string& text, const Revision& revision);

}  // namespace quillmark
