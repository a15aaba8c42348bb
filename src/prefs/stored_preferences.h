#pragma once

#include "controls/text_box.h"
#include "platform/desktop.h"
#include "platform/preference_store.h"
#include "session/session.h"

namespace quillmark {

// Reads the stored preferences, at the load of the main window: the flags go into `session`, the
// style into `terminal`. A style or a flag that does not convert makes all of them fall back to
// their defaults for this run; the store is left as it is. PlanFirst stands by itself: where
// nothing is stored it stays as it is, and what does not convert is True. Returns the number of the
// serial port, 1 when none from 1 to 16 is stored.
int LoadStoredPreferences(const PreferenceStore& store, Session& session, TextBox& terminal);
// Stores them, but for the port, which the window of its settings stores.
void StorePreferences(PreferenceStore& store, const Session& session, const TextBox& terminal);

// The stored theme; that of the desktop when none is stored that can be read.
Theme StoredTheme(const PreferenceStore& store);
void StoreTheme(PreferenceStore& store, Theme theme);

}  // namespace quillmark
