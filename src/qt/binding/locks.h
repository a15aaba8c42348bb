#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillmark {

class Control;
class Form;

// Controls whose feature is not built yet. The view shows them locked, with a tool tip that says
// so: a control that does nothing says why. A feature that is built takes its rows out.

// What the tool tip of a locked control says; nothing for a control that works, or that a user
// would not try to click.
std::optional<std::string> LockTip(const Control& control);

// Where the table and the handlers of a form disagree: a control without a handler that is not in
// the table, or one in the table that has a handler. One sentence each.
std::vector<std::string> LockProblems(const Form& form);

}  // namespace quillmark
