#pragma once

namespace quillmark {

// A dark theme for desktops that have none of their own; the application exists by then.
void UseDarkTheme();

}  // namespace quillmark
