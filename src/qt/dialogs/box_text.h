#pragma once

#include <string>

class QLabel;
class QWidget;

namespace quillmark {

// A text of a box, plain, in a column that reads well; it can be selected. A word that is too long
// for the column, such as a path, has marks that are not seen, where it goes on in the next line.
// Then the accessible name is the text without them. `parent` owns it.
QLabel* MakeBoxText(const std::string& text, const char* name, QWidget* parent);

// From now on what the user copies out of such texts of the window has no marks.
void CopyWithoutBreaks(QWidget& window);

}  // namespace quillmark
