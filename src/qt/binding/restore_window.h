#pragma once

class QWidget;

namespace quillmark {

// The store and restore window without its logic: what is drawn in its form, and the 35 rows, the
// progress row and the columns that a form cannot hold. The table of drawn windows calls it; the
// caller owns the window, or `parent` does.
QWidget* MakeRestoreWindow(QWidget* parent);

}  // namespace quillmark
