#include "start/undo_run.h"

#include <utility>

#include "history/radio_copy.h"

namespace quillmark {

namespace {

constexpr const char* restoreTitle = "Restore What Was There";
constexpr const char* openTitle = "Radio History";

}  // namespace

UndoRun::UndoRun(Platform& machine, frmOrvalent& window, RadioHistory& copies,
                 RestoreMenu& restoreMenu)
    : platform(machine), main(window), history(copies), restore(restoreMenu) {}

void UndoRun::Wire() {
  main.mnuRestoreBefore.OnClick = [this] { Restore(); };
}

void UndoRun::NoteRun() {
  file = history.BeforeLastRun();
  offered = false;
  main.CopyBefore.Drop();
  main.mnuRestoreBefore.Enabled = !file.empty();
}

void UndoRun::NoteRead() {
  if (file.empty() || std::exchange(offered, true)) return;
  main.CopyBefore.Tell("What the radio held before the last run can be restored. Click here.",
                       [this] { Restore(); });
}

bool UndoRun::CanRestore(const std::string& title) const {
  if (main.mnuConfigRestore.Reachable()) return true;
  platform.Dialogs.Message(
      {"This can be done when a radio is connected and no run is under way.", title});
  return false;
}

void UndoRun::Restore() {
  if (file.empty() || !CanRestore(restoreTitle)) return;
  if (!IsForThisRadio(file, "The last run was at another radio", restoreTitle)) return;
  main.CopyBefore.Drop();
  restore.Compare(file, true);
}

void UndoRun::Open(const std::filesystem::path& copy) {
  if (!CanRestore(openTitle)) return;
  if (IsForThisRadio(copy, "This copy is of another radio", openTitle)) restore.Compare(copy);
}

bool UndoRun::IsForThisRadio(const std::filesystem::path& copy, const std::string& copyIs,
                             const std::string& title) const {
  const std::string kept = ReadCopy(copy).Copy.Serial;
  const std::string& connected = main.At(SettingId::SerialNumber).Text();
  if (kept == connected) return true;
  const Answer answer = platform.Dialogs.Message(
      {.Text = copyIs + ", " + kept + ". Connected is " + connected +
               ".\r\rDo you want to compare it with that radio all the same?",
       .Title = title,
       .Symbol = Icon::Exclamation,
       .Choice = Buttons::YesNo});
  return answer == Answer::Yes;
}

}  // namespace quillmark
