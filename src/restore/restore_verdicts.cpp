#include "restore/restore_verdicts.h"

#include "restore/restore_program.h"

namespace quillmark {

Verdict JudgeRow(const RestoreRow& row, const std::string& text, const Revision& revision) {
  if (text == NoValue) return {};
  for (const std::string& command : RestoreCommands(row, text)) {
    Verdict verdict = JudgeCommand(*row.What, command, revision, {});
    if (!verdict.Fine()) return verdict;
  }
  return {};
}

}  // namespace quillmark
