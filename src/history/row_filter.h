#pragma once

#include <optional>
#include <set>
#include <string>

#include "app/frmOrvalent.h"
#include "history/copy_store.h"
#include "platform/desktop.h"

namespace quillmark {

// Shows only those settings of the main window that have changed: from their factory values, or
// since the last copy of the connected radio. The tabs tell how many there are, a notice tells that
// rows are left out. Everything given to it outlives it.
//
// The last copy is the newest sound one of this radio that holds another value than the rows show
// for at least one setting. The newest of all would not do: a read keeps a copy by itself, and that
// one is what the rows show.
class RowFilter {
 public:
  RowFilter(frmOrvalent& main, const CopyStore& copies, const Desktop& desktop);

  // Joins the menu entries to this.
  void Wire();
  // The rows have been read: shows those that have changed now.
  void Apply();

 private:
  enum class Kind { None, Factory, Copy };
  // Those that are left in view, and what the notice tells of them.
  struct Outcome {
    std::set<SettingId> Shown;
    std::string Sentence;
  };

  void Choose(Kind next);
  Outcome ChangedFromFactory() const;
  Outcome ChangedSinceCopy() const;
  std::set<SettingId> ChangedSince(const RadioCopy& copy) const;
  // The user's time of a copy, as its file's name has it.
  std::string TimeOf(const std::filesystem::path& copy) const;
  void ShowCounts(const std::set<SettingId>* shown);
  void ShowFirstTab();

  frmOrvalent& main;
  const CopyStore& store;
  const Desktop& desktop;
  Kind kind = Kind::None;
};

}  // namespace quillmark
