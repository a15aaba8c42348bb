#pragma once

namespace quillmark {

// Tells assistive tools what our own widgets are, what they are called, which value they show, and
// how they are pressed. Called once, before the first window; a second call changes nothing.
void MakeOurWidgetsAccessible();

}  // namespace quillmark
