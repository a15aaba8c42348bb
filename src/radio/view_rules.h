#pragma once

#include "app/frmOrvalent.h"
#include "session/session.h"

namespace quillmark {

// Reshapes the settings view for the radio that is being read. Both run in every read cycle, so
// that they undo themselves when another radio is connected.

// Shows and hides rows by the software revision, and moves others into the gaps. An unknown
// revision counts as below every threshold.
void ApplyRevisionRules(frmOrvalent& main, const Revision& revision);

// Enables and disables rows by the text of the mode row: only a master's network rows can be
// changed.
void ApplyModeRules(frmOrvalent& main, bool inSetupMode);

}  // namespace quillmark
