#include "history/copy_acts.h"

#include <algorithm>
#include <memory>

#include "config/frmComparison.h"
#include "config/replaced_file.h"
#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

const auto isPinned = [](const ListedCopy& copy) { return copy.Pinned; };

// "SN 00123456" of a folder of that radio is no file's name; the folder and the file are.
std::string ExportName(const fs::path& file) {
  return PathText(file.parent_path().filename()) + " " + PathText(file.filename());
}

std::string DeleteQuestion(const std::vector<ListedCopy>& copies) {
  const auto pinned = std::ranges::count_if(copies, isPinned);
  if (copies.size() == 1) {
    return "Delete this copy?\r\r" + copies.front().Title() +
           (pinned > 0 ? "\r\rIt is pinned." : "");
  }
  std::string text = "Delete these " + std::to_string(copies.size()) + " copies?";
  if (pinned > 0) text += "\r\r" + std::to_string(pinned) + " of them are pinned.";
  return text;
}

}  // namespace

std::optional<ConfigValues> CopyActs::ValuesIn(const ListedCopy& copy) {
  const KeptCopy kept = ReadCopy(copy.File);
  if (kept.State == CopyState::Sound || kept.State == CopyState::Changed) {
    return ValuesOf(kept.Copy.Lines);
  }
  platform.Dialogs.Message({"This copy is gone, or can't be compared:\r\r" + copy.Title(),
                            "Comparison", Icon::Exclamation});
  return std::nullopt;
}

void CopyActs::Compare(const ListedCopy& older, const ListedCopy& newer) {
  const auto first = ValuesIn(older);
  if (!first) return;
  const auto second = ValuesIn(newer);
  if (!second) return;
  platform.Windows.Show(std::make_shared<frmComparison>(older.Title(), newer.Title(),
                                                        CompareValues(*first, *second)));
}

void CopyActs::CompareWithRadio(const ListedCopy& copy, const RadioCopy& radio) {
  const auto kept = ValuesIn(copy);
  if (!kept) return;
  platform.Windows.Show(
      std::make_shared<frmComparison>(copy.Title(), radio.Serial + ", as it was read last",
                                      CompareValues(*kept, ValuesOf(radio.Lines))));
}

void CopyActs::ForEach(const std::vector<ListedCopy>& copies, const std::string& title,
                       const std::function<void(const ListedCopy&)>& act) {
  try {
    for (const ListedCopy& copy : copies) act(copy);
  } catch (const FileError& error) {
    platform.Dialogs.Message(
        {std::string("This could not be done.\r\r") + error.what(), title, Icon::Exclamation});
  }
}

void CopyActs::Pin(const std::vector<ListedCopy>& copies) {
  const bool pin = !std::ranges::all_of(copies, isPinned);
  ForEach(copies, "Pin", [this, pin](const ListedCopy& copy) {
    if (copy.Pinned != pin) store.Note(copy.File, ReadCopy(copy.File).Copy.Name, pin);
  });
}

void CopyActs::AskName(const ListedCopy& copy) {
  const std::string answer =
      platform.Dialogs.Input({.Prompt = "What is this copy to be called?\r" + copy.When,
                              .Title = "Name Of The Copy",
                              .Default = copy.Name,
                              .Hint = "At most " + std::to_string(LongestCopyName) +
                                      " characters. A blank alone takes the name away."});
  if (answer.empty()) return;
  ForEach({copy}, "Name Of The Copy", [this, &answer](const ListedCopy& named) {
    store.Note(named.File, answer, ReadCopy(named.File).Copy.Pinned);
  });
}

bool CopyActs::MayReplace(const fs::path& path) {
  if (!FileExists(path)) return true;
  const Answer answer = platform.Dialogs.Message(
      {.Text = "This file is there already:\r\r" + PathText(path) + "\r\rReplace it?",
       .Title = "Export",
       .Symbol = Icon::Question,
       .Choice = Buttons::YesNo,
       .Irreversible = true});
  return answer == Answer::Yes;
}

void CopyActs::Export(const ListedCopy& copy) {
  const auto path = ChooseToSave(platform, FileKind::Configuration,
                                 {.Title = "Export",
                                  .Filter = "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*",
                                  .Name = ExportName(copy.File)});
  if (!path || path->empty() || !MayReplace(*path)) return;
  ForEach({copy}, "Export", [&](const ListedCopy& each) { store.Export(each.File, *path); });
}

void CopyActs::Delete(const std::vector<ListedCopy>& copies) {
  const Answer answer = platform.Dialogs.Message({.Text = DeleteQuestion(copies),
                                                  .Title = "Delete",
                                                  .Symbol = Icon::Exclamation,
                                                  .Choice = Buttons::YesNo,
                                                  .Details = "It can't be undone.",
                                                  .Irreversible = true});
  if (answer != Answer::Yes) return;
  ForEach(copies, "Delete", [](const ListedCopy& copy) { CopyStore::Remove(copy.File); });
}

}  // namespace quillmark
