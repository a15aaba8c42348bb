#pragma once

#include "app/frmOrvalent.h"
#include "platform/dialogs.h"
#include "session/session.h"

namespace quillmark {

// The built-in manual: a click on a label explains its setting. Joins the labels of the main window
// to their texts; nothing is sent to the radio. Everything given to it outlives the window.
void WireExplanations(frmOrvalent& main, Dialogs& dialogs, const Session& session);

}  // namespace quillmark
