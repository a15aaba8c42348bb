#pragma once

#include "restore/restore_controls.h"

namespace quillmark {

// Which rows can be ticked. Three moments decide by the radio's mode: a read, a loaded line, and a
// tick on the mode row, each with its own rows.

// The rows that a read puts into the radio's mode, once a file is open.
void FollowModeOfRadio(RestoreControls& controls);
// The row of a line that was loaded.
void EnableLoadedRow(RestoreControls& controls, RestoreRowControls& row);
// The user ticked or cleared the mode row.
void ModeCheck_Click(RestoreControls& controls);
// Ticks or clears each box that is enabled.
void CheckEach(RestoreControls& controls, bool ticked);
// Ticks the rows that differ and clears the others, where the boxes are enabled. Tells how many are
// ticked, and how many differ that can't be.
void TickDiffering(RestoreControls& controls);
// The same, and ticks the rows that the file alone has. If the mode differs, the rows that its tick
// frees are among them.
void TickToRestore(RestoreControls& controls);

}  // namespace quillmark
