#pragma once

#include <string>
#include <vector>

#include "restore/restore_controls.h"
#include "restore/restore_link.h"

namespace quillmark {

// The commands, without their carriage returns, that program a row's new text.
std::vector<std::string> RestoreCommands(const RestoreRow& row, const std::string& text);

// Sends the new value of each ticked row, in the order of the table. What the radio says to it is
// not looked at; the read that follows shows what it took. A radio that shows no prompt ends a
// command, not the run. Throws SerialError.
void ProgramTickedRows(RestoreControls& controls, RestoreLink& link);

}  // namespace quillmark
