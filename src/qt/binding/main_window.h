#pragma once

class QWidget;

namespace quillmark {

// The main window without its logic: what is drawn in its form, and what a form cannot hold: the
// end of the toolbar, the status bar, the menu of a preset button. The registry of windows calls
// it. `parent` owns the window, or the caller when that is null.
QWidget* DrawMainWindow(QWidget* parent);

}  // namespace quillmark
