#pragma once

#include <string>

namespace quillmark {

// Tells the user of a defect of the program, in a box that waits for them.
void ShowDefectBox(const std::string& what);

}  // namespace quillmark
