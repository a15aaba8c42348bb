#include "start/copy_before.h"

#include <utility>

#include "history/radio_copy.h"

namespace quillmark {

CopyBefore::CopyBefore(Platform& machine, frmOrvalent& window, RadioHistory& copies,
                       RestoreMenu& restoreMenu)
    : platform(machine), main(window), history(copies), restore(restoreMenu) {}

void CopyBefore::Wire() {
  main.mnuRestoreBefore.OnClick = [this] { Restore(); };
}

void CopyBefore::NoteRun() {
  file = history.BeforeLastRun();
  offered = false;
  main.CopyBefore.Drop();
  main.mnuRestoreBefore.Enabled = !file.empty();
}

void CopyBefore::NoteRead() {
  if (file.empty() || std::exchange(offered, true)) return;
  main.CopyBefore.Tell("What the radio held before the last run can be restored. Click here.",
                       [this] { Restore(); });
}

void CopyBefore::Restore() {
  if (!main.mnuConfigRestore.Reachable()) {
    platform.Dialogs.Message({"This can be done when a radio is connected and no run is under way.",
                              "Restore What Was There"});
  } else if (IsForThisRadio()) {
    main.CopyBefore.Drop();
    restore.Compare(file, true);
  }
}

bool CopyBefore::IsForThisRadio() const {
  const std::string kept = ReadCopy(file).Copy.Serial;
  const std::string& connected = main.At(SettingId::SerialNumber).Text();
  if (kept == connected) return true;
  const Answer answer = platform.Dialogs.Message(
      {.Text = "The last run was at another radio, " + kept + ". Connected is " + connected +
               ".\r\rDo you want to compare it with that radio all the same?",
       .Title = "Restore What Was There",
       .Symbol = Icon::Exclamation,
       .Choice = Buttons::YesNo});
  return answer == Answer::Yes;
}

}  // namespace quillmark
