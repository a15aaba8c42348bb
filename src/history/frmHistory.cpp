#include "history/frmHistory.h"

#include <algorithm>
#include <utility>

#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr int readInterval = 10;  // ms between slices
constexpr int pinColumn = 3;

std::string Number(std::size_t number, const std::string& word, const std::string& words) {
  return std::to_string(number) + " " + (number == 1 ? word : words);
}

TableRow RowOf(const ListedCopy& copy) {
  std::string changes = copy.Changes;
  if (!copy.Trouble.empty()) changes = copy.Trouble + (changes.empty() ? "" : "; " + changes);
  return {.Cells = {copy.When, copy.Reason, copy.Name, "", changes},
          .Mark = copy.Pinned ? Sign::Pinned : Sign::None,
          .Tip = copy.AllChanges,
          .Muted = !copy.Trouble.empty()};
}

}  // namespace

frmHistory::frmHistory(Platform& machine, const Session& shared, const RadioHistory& itsHistory)
    : Form("frmHistory"),
      lblSearch(*this, this, "lblSearch", "&Search:"),
      txtSearch(*this, this, "txtSearch"),
      tbr_Compare(*this, this, "tbr_Compare", "Compare"),
      tbr_CompareRadio(*this, this, "tbr_CompareRadio", "Compare With Radio"),
      tbr_Restore(*this, this, "tbr_Restore", "Store/Restore..."),
      tbr_Open(*this, this, "tbr_Open", "Open..."),
      tbr_Pin(*this, this, "tbr_Pin", "Pin"),
      tbr_Name(*this, this, "tbr_Name", "Name..."),
      tbr_Export(*this, this, "tbr_Export", "Export..."),
      tbr_Delete(*this, this, "tbr_Delete", "Delete..."),
      tbr_Refresh(*this, this, "tbr_Refresh", "Refresh"),
      tblRadios(*this, this, "tblRadios", {"Radio", "Unit", "Owner", "Last copy"}),
      tblCopies(*this, this, "tblCopies", {"Kept", "Reason", "Name", "Pinned", "Changed"},
                pinColumn),
      lblEmpty(*this, this, "lblEmpty"),
      lblState(*this, this, "lblState"),
      cmdClose(*this, this, "cmdClose", "Close"),
      tmrRead(*this, "tmrRead", machine.Events, readInterval, false),
      platform(machine),
      session(shared),
      history(itsHistory),
      acts(machine, itsHistory.Store),
      reader(machine.Desktop),
      search(machine.Desktop) {
  Caption = "Radio History";
  Wire();
  WireActs();
  if (const auto connected = history.Connected()) chosen = FolderName(connected->Serial);
  Refresh();
  tblCopies.SetFocus();
}

void frmHistory::Wire() {
  txtSearch.OnChange = [this] {
    KeepSelection();
    Search();
  };
  tblRadios.OnSelect = [this] { tblRadios_Select(); };
  tblCopies.OnSelect = [this] {
    KeepSelection();
    ShowActs();
  };
  tblCopies.OnOpen = [this] { tbr_Compare.Click(); };
  tmrRead.OnTick = [this] {
    if (stale) Refresh();
    ReadOn();
  };
  tbr_Refresh.OnClick = [this] { Refresh(); };
  cmdClose.OnClick = [this] { Unload(); };
}

void frmHistory::WireActs() {
  tbr_Compare.ToolTip = "Compares two copies, or one with the copy before it (Ctrl+D)";
  tbr_CompareRadio.ToolTip =
      "Compares the copy with what the radio held at its last read (Ctrl+Shift+D)";
  tbr_Restore.ToolTip = "Opens the copy in the store and restore window (Ctrl+O)";
  tbr_Open.ToolTip = "Opens the copy as a configuration file, without a radio (Ctrl+Shift+O)";
  tbr_Pin.ToolTip = "A pinned copy is never removed to make room (Ctrl+P)";
  tbr_Name.ToolTip = "Gives the copy a name (F2)";
  tbr_Export.ToolTip = "Writes the copy to a file of your choice (Ctrl+S)";
  tbr_Delete.ToolTip = "Deletes the copies for good (Del)";
  tbr_Refresh.ToolTip = "Looks at the files again (F5)";
  tbr_Compare.OnClick = [this] { Compare(); };
  tbr_CompareRadio.OnClick = [this] { CompareWithRadio(); };
  tbr_Restore.OnClick = [this] {
    if (Restore) Restore(Selected().front().File);
  };
  tbr_Open.OnClick = [this] {
    if (OpenFile) OpenFile(Selected().front().File);
  };
  tbr_Pin.OnClick = [this] { Change([this](const auto& rows) { acts.Pin(rows); }); };
  tbr_Name.OnClick = [this] { Change([this](const auto& rows) { acts.AskName(rows.front()); }); };
  tbr_Export.OnClick = [this] { acts.Export(Selected().front()); };
  tbr_Delete.OnClick = [this] { Change([this](const auto& rows) { acts.Delete(rows); }); };
}

void frmHistory::RefreshSoon() {
  stale = true;
  tmrRead.Enabled = true;
}

void frmHistory::Refresh() {
  stale = false;
  radios = ListRadios(history.Store, platform.Desktop);
  again = Chosen() != nullptr;
  if (!again) chosen = radios.empty() ? "" : radios.front().Folder;
  ReadChosen();
  Search();
}

// Where the chosen radio is not to be seen, the first one that is takes its place.
void frmHistory::ShowRadios() {
  shownRadios.clear();
  std::vector<TableRow> rows;
  std::vector<std::size_t> select;
  for (std::size_t place = 0; place < radios.size(); ++place) {
    if (!search.Found(radios[place].Folder)) continue;
    if (radios[place].Folder == chosen) select = {rows.size()};
    shownRadios.push_back(place);
    rows.push_back(radios[place].Row);
  }
  if (select.empty() && !rows.empty() && search.Done()) {
    select = {0};
    chosen = radios[shownRadios.front()].Folder;
    again = false;
    ReadChosen();
  }
  tblRadios.Show(std::move(rows), std::move(select));
}

const ListedRadio* frmHistory::Chosen() const {
  const auto at = std::ranges::find(radios, chosen, &ListedRadio::Folder);
  return at == radios.end() ? nullptr : &*at;
}

void frmHistory::tblRadios_Select() {
  if (tblRadios.Selected().empty()) return;
  chosen = radios[shownRadios[tblRadios.Selected().front()]].Folder;
  again = false;
  ReadChosen();
}

void frmHistory::ReadChosen() {
  const ListedRadio* radio = Chosen();
  reader.Begin(radio == nullptr ? std::vector<fs::path>() : radio->Files);
  ReadOn();
}

// One slice of what is still to be read.
void frmHistory::ReadOn() {
  if (!reader.Done() || copies != reader.Copies()) {
    reader.Step(Slice(platform.Events));
    if (!again || reader.Done()) copies = reader.Copies();
  } else if (!search.Done()) {
    search.Step(Slice(platform.Events));
    ShowRadios();
  }
  ShowCopies();
  tmrRead.Enabled = !reader.Done() || !search.Done();
}

void frmHistory::Search() {
  std::vector<CopySearch::Place> places;
  for (const ListedRadio& radio : radios) places.push_back({radio.Folder, radio.Files});
  search.Begin(Folded(Trim(txtSearch.Text())), std::move(places));
  search.Step(Slice(platform.Events));
  ShowRadios();
  ShowCopies();
  tmrRead.Enabled = !reader.Done() || !search.Done();
}

void frmHistory::KeepSelection() {
  selected.clear();
  for (const std::size_t row : tblCopies.Selected()) {
    selected.insert(copies[shownCopies[row]]->File);
  }
}

// Where nothing is selected, the newest one is.
void frmHistory::ShowCopies() {
  shownCopies.clear();
  std::vector<TableRow> rows;
  std::vector<std::size_t> select;
  for (std::size_t place = 0; place < copies.size(); ++place) {
    const ListedCopy& copy = *copies[place];
    if (!search.Fits(copy)) continue;
    if (selected.contains(copy.File)) select.push_back(rows.size());
    shownCopies.push_back(place);
    rows.push_back(RowOf(copy));
  }
  if (select.empty() && !rows.empty()) select = {0};
  tblCopies.Show(std::move(rows), std::move(select));
  ShowActs();
  ShowState();
}

std::vector<ListedCopy> frmHistory::Selected() const {
  std::vector<ListedCopy> rows;
  for (const std::size_t row : tblCopies.Selected()) rows.push_back(*copies[shownCopies[row]]);
  return rows;
}

const ListedCopy* frmHistory::Before(const ListedCopy& copy) const {
  bool behind = false;
  for (const auto& each : copies) {
    if (behind && each->Compares) return each.get();
    behind = behind || each->File == copy.File;
  }
  return nullptr;
}

void frmHistory::ShowActs() {
  const auto rows = Selected();
  const bool one = rows.size() == 1;
  const auto all = [&rows](auto fits) { return !rows.empty() && std::ranges::all_of(rows, fits); };
  const bool compare = all([](const ListedCopy& copy) { return copy.Compares; });
  const bool sound = all([](const ListedCopy& copy) { return copy.Trouble.empty(); });
  const bool pinned = all([](const ListedCopy& copy) { return copy.Pinned; });
  const bool plain = all([](const ListedCopy& copy) { return copy.Plain; });
  tbr_Compare.Enabled = compare && (rows.size() == 2 || (one && Before(rows.front()) != nullptr));
  tbr_CompareRadio.Enabled = compare && one;
  tbr_Restore.Enabled = compare && one;
  tbr_Open.Enabled = compare && one;
  tbr_Pin.Enabled = sound;
  tbr_Pin.Text = pinned ? "Unpin" : "Pin";
  tbr_Name.Enabled = sound && one;
  tbr_Export.Enabled = plain && one;
  tbr_Delete.Enabled = plain;
}

void frmHistory::Compare() {
  const auto rows = Selected();
  const ListedCopy* older = rows.size() == 1 ? Before(rows.front()) : &rows.back();
  if (older != nullptr) acts.Compare(ListedCopy(*older), rows.front());
}

void frmHistory::CompareWithRadio() {
  if (const auto radio = history.Connected()) {
    acts.CompareWithRadio(Selected().front(), *radio);
  } else {
    platform.Dialogs.Message(
        {"This can be done when a radio is connected and has been read.", "Comparison"});
  }
}

void frmHistory::Change(const std::function<void(const std::vector<ListedCopy>&)>& act) {
  KeepSelection();
  act(Selected());
  Refresh();
}

std::string frmHistory::StateText() const {
  std::string text = Number(radios.size(), "radio", "radios");
  if (const ListedRadio* radio = Chosen()) {
    text += ", " + Number(radio->Files.size(), "copy", "copies") + " of " + radio->Folder;
  }
  if (search.Wanted()) text += "; " + Number(shownCopies.size(), "fits", "fit") + " the search";
  if (!search.Done() || !reader.Done()) text += ", still reading";
  if (reader.LeftOut() > 0)
    text += "; the oldest " + std::to_string(reader.LeftOut()) + " not shown";
  return text + ".";
}

void frmHistory::ShowState() {
  const std::string off =
      session.History
          ? ""
          : "No copies are kept now: \"Keep Copies Of Radio Settings\" is off. It is in "
            "the menu \"Special\", \"Application Preferences\".";
  std::string none;
  if (radios.empty()) {
    none =
        "There are no copies yet.\r\rA copy of a radio's settings comes here when the radio has "
        "been read, and before something overwrites it.\r\rThe copies are files below\r" +
        PathText(platform.Files.Data() / "radios");
    if (!off.empty()) none += "\r\r" + off;
  }
  lblEmpty.Text = none;
  lblEmpty.Visible = !none.empty();
  lblState.Text = radios.empty() ? "" : StateText() + (off.empty() ? "" : "\r" + off);
}

}  // namespace quillmark
