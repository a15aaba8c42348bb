#pragma once

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"

namespace quillmark {

// Joins a conversation to the record of the settings sent: it learns which lines go out and what
// the radio answers to them. Nothing on the line changes. The window outlives the conversation.
void ListenForSettings(Conversation& radio, frmOrvalent& main);

}  // namespace quillmark
