#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/table.h"
#include "controls/text_box.h"
#include "controls/timer.h"
#include "history/copy_acts.h"
#include "history/copy_reader.h"
#include "history/listed_radio.h"
#include "history/radio_history.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// The copies of what radios held: the radios on the left, the copies of the chosen one on the
// right, newest first, and what can be done with them. A line searches all of them. Stands beside
// the main window. Files are read in slices, so that the window takes acts meanwhile, and again
// when the user comes back to it: another console may have kept or removed some. Everything given
// to it outlives it.
class frmHistory : public Form {
 public:
  frmHistory(Platform& platform, const Session& session, const RadioHistory& history);

  Label lblSearch;
  TextBox txtSearch;
  ToolButton tbr_Compare, tbr_CompareRadio, tbr_Restore, tbr_Open, tbr_Pin, tbr_Name, tbr_Export,
      tbr_Delete, tbr_Refresh;
  Table tblRadios, tblCopies;
  Label lblEmpty, lblState;
  Button cmdClose;
  Timer tmrRead;

  // Opens a copy of that radio in the store and restore window. Set by whoever makes this one.
  std::function<void(const std::filesystem::path&)> Restore;
  // Opens a copy as a configuration file, which needs no radio. Set likewise.
  std::function<void(const std::filesystem::path&)> OpenFile;
  // Looks at the files again. What is chosen stays chosen.
  void Refresh();
  // The same at the next tick, for callers who have no time.
  void RefreshSoon();

 protected:
  void Form_Return() override { Refresh(); }

 private:
  void Wire();
  void WireActs();
  void ReadOn();
  void ReadChosen();
  void Search();
  void ShowRadios();
  void ShowCopies();
  void ShowState();
  void ShowActs();
  void tblRadios_Select();
  void KeepSelection();
  std::string StateText() const;
  const ListedRadio* Chosen() const;
  // The selected copies, newest first.
  std::vector<ListedCopy> Selected() const;
  // The next older copy that can be compared; null when there is none.
  const ListedCopy* Before(const ListedCopy& copy) const;
  void Compare();
  void CompareWithRadio();
  // An act that changes files.
  void Change(const std::function<void(const std::vector<ListedCopy>&)>& act);

  Platform& platform;
  const Session& session;
  const RadioHistory& history;
  CopyActs acts;
  CopyReader reader;
  CopySearch search;
  std::vector<ListedRadio> radios;
  std::vector<std::size_t> shownRadios;             // places in `radios`, row by row
  std::vector<std::shared_ptr<ListedCopy>> copies;  // of the chosen radio, as far as they are read
  std::vector<std::size_t> shownCopies;             // places in them, row by row
  std::string chosen;                               // folder of the radio
  std::set<std::filesystem::path> selected;         // copies
  bool again = false;  // these copies were read before: they stand until all are read anew
  bool stale = false;  // the files are to be looked at again
};

}  // namespace quillmark
