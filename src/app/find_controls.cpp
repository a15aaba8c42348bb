#include "app/find_controls.h"

namespace quillmark {

FindControls::FindControls(Form& form)
    : findStrip(form, &form, "findStrip"),
      lblFind(form, &findStrip, "lblFind", "Find:"),
      txtFind(form, &findStrip, "txtFind"),
      cmdFindPrevious(form, &findStrip, "cmdFindPrevious", "Previous"),
      cmdFindNext(form, &findStrip, "cmdFindNext", "Next"),
      cmdFindGo(form, &findStrip, "cmdFindGo", "Go To"),
      cmdFindClose(form, &findStrip, "cmdFindClose", "Close"),
      lblFound(form, &findStrip, "lblFound") {
  constexpr std::size_t longestQuery = 100;
  findStrip.Visible = false;
  txtFind.MaxLength = longestQuery;
  txtFind.ToolTip = "A setting's caption, its word, its value, or words of its explanation";
  cmdFindPrevious.ToolTip = "The setting before (Up)";
  cmdFindNext.ToolTip = "The next setting (Down)";
  cmdFindGo.ToolTip = "Goes to the setting (Enter); Enter there changes it";
  cmdFindClose.ToolTip = "Closes the bar (Escape)";
}

}  // namespace quillmark
