#include "config/presets/frmViewer.h"

#include <map>

#include "config/judged_lines.h"

namespace quillmark {

frmViewer::frmViewer()
    : Form("frmViewer"),
      txtViewer(*this, this, "txtViewer"),
      lblProblems(*this, this, "lblProblems"),
      cmdClose(*this, this, "cmdClose", "Close") {
  lblProblems.Visible = false;
  cmdClose.OnClick = [this] { Unload(); };
}

void frmViewer::ShowLines(const std::vector<std::string>& lines, const Revision& revision) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  txtViewer.Text = text;
  ShowProblems(lines, revision);
}

// The first ones in words below the text; each has a mark and a tool tip in it.
void frmViewer::ShowProblems(const std::vector<std::string>& lines, const Revision& revision) {
  constexpr std::size_t mostInWords = 4;
  const std::vector<JudgedLine> judged = JudgeLines(lines, revision);
  std::map<std::size_t, std::string> remarks;
  std::string words = "The radio will not take " + std::to_string(judged.size()) +
                      (judged.size() == 1 ? " line:" : " lines:");
  for (const JudgedLine& each : judged) {
    remarks[each.Number] = each.What.Sentence();
    if (remarks.size() <= mostInWords) words += "\r\n" + each.Sentence();
  }
  if (judged.size() > mostInWords) {
    words += "\r\nand " + std::to_string(judged.size() - mostInWords) + " more";
  }
  txtViewer.Remarks = remarks;
  lblProblems.Text = words;
  lblProblems.Visible = !judged.empty();
}

}  // namespace quillmark
