#pragma once

class QWidget;

namespace quillmark {

// The window of a configuration file without its logic: what is drawn in its form, and the rows,
// which a form cannot hold. The registry of windows calls it. `parent` owns the window, or the
// caller when that is null.
QWidget* DrawConfigWindow(QWidget* parent);

}  // namespace quillmark
