#pragma once

class QWidget;

namespace quillmark {

// The store and restore window without its logic: what is drawn in its form, and the 35 rows, the
// progress row and the columns that a form cannot hold. The registry of windows calls it.
// `parent` owns the window, or the caller when that is null.
QWidget* DrawRestoreWindow(QWidget* parent);

}  // namespace quillmark
