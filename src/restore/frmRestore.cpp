#include "restore/frmRestore.h"

#include <algorithm>
#include <utility>

#include "link/serial_failure.h"
#include "restore/restore_select.h"
#include "text/at_end.h"

namespace quillmark {

frmRestore::frmRestore(Platform& machine, Session& shared, frmOrvalent& window,
                       Connection& radioLink)
    : Form("frmRestore"),
      RestoreControls(*this, machine.Events, window.Settings),
      platform(machine),
      session(shared),
      main(window),
      connection(radioLink),
      link(machine, shared, window, *this),
      reader(*this, link, shared),
      loader(machine, shared, *this, *this, window.Settings),
      saver(machine, shared, window, *this, link, *this),
      programmer(*this, link, main.Sent) {
  Caption = "Configuration Store/Restore";
  session.DropReconnect();
  session.RxBuffer = " ";
  LayOut();
  ApplyRevision(session.SoftwareRevision);
  Wire();
  // The rest waits for the first tick, so that the window is up while the radio is woken.
  Timer1.Enabled = true;
}

void frmRestore::LayOut() {
  for (Frame& frame : RadSet) {
    frame.Left = TabStrip.Left();
    frame.Top = TabStrip.Top();
    frame.Width = TabStrip.Width();
    frame.Height = TabStrip.Height();
  }
  ResetProgress();
  RadSet.front().BringToFront();
  DescriptionFrame.Left = 175;
  FileSettingsLabel.Text = "Open a file for\rrestoring settings...";
  tbr_ProgramRadio.Enabled = false;
  tbr_SaveConfig.Enabled = false;
  CheckAllButton.Enabled = false;
  UnCheckAllButton.Enabled = false;
  TickDifferingButton.Enabled = false;
}

void frmRestore::Wire() {
  Timer1.OnTick = [this] { Timer1_Timer(); };
  CloseButton.OnClick = [this] { CloseButton_Click(); };
  tbr_Refresh.OnClick = [this] { RefreshSettings(); };
  tbr_OpenConfig.OnClick = [this] { OpenConfig_Click(); };
  tbr_ProgramRadio.OnClick = [this] { RunWhenFree(Task::Program); };
  tbr_SaveConfig.OnClick = [this] { RunWhenFree(Task::Save); };
  CheckAllButton.OnClick = [this] { CheckEach(*this, true); };
  UnCheckAllButton.OnClick = [this] { CheckEach(*this, false); };
  TickDifferingButton.OnClick = [this] { TickDiffering(*this); };
  for (RestoreRowControls& row : Rows) row.New.OnChange = [this] { ShowDifferences(); };
  At(SettingId::Mode).Check.OnClick = [this] { ModeCheck_Click(*this); };
}

void frmRestore::CloseButton_Click() {
  if (ReadIdle) {
    Unload();
  } else {
    CloseRequested = true;
  }
}

void frmRestore::Form_Unload() {
  Timer1.Enabled = false;
  waiting.clear();
  link.Close();
  main.Enabled = true;
  main.SetFocus();
  session.AskForRead();
  // The main window has lost its link meanwhile and shows so; only a connect may open the port.
  if (main.NotConnected) return;
  try {
    platform.MSComm1.SetPortOpen(true);
  } catch (const SerialError& error) {
    if (!programEnds) ShowLinkError(platform.Dialogs, error);
    // There is nothing to connect to again; the main window shows so.
    connection.DisconnectRadio();
  }
}

void frmRestore::EndProgram() {
  programEnds = true;
  Unload();
}

void frmRestore::MSComm2_OnComm() {
  WithLinkErrors(platform.Dialogs, [this] { link.MSComm2_OnComm(); });
  NotePort();
}

void frmRestore::RefreshSettings() {
  ReadPending = true;
  UpdateTimer();
}

void frmRestore::StartReadTimer() {
  readTimerStarted = true;
  UpdateTimer();
}

void frmRestore::StopReadTimer() {
  readTimerStarted = false;
  UpdateTimer();
}

void frmRestore::UpdateTimer() {
  // The first tick opens the port.
  const bool due = !started || (readTimerStarted && ReadPending && link.IsOpen());
  Timer1.Enabled = Loaded() && due;
}

void frmRestore::NotePort() {
  UpdateTimer();
  if (!link.IsOpen() && !ReadIdle && reads == 0 && !taskRuns) BecomeIdle();
}

void frmRestore::Timer1_Timer() {
  if (!started) {
    started = true;
    UpdateTimer();
    OpenAndWake();
  } else if (ReadPending && link.IsOpen() && !taskRuns) {
    ReadRadio();
  }
  NotePort();
}

void frmRestore::OpenAndWake() {
  {
    ++reads;
    const AtEnd underWay([this] { --reads; });
    try {
      link.Open();
      link.Wake([this] { return CloseRequested; });
      ReadPending = true;
      readTimerStarted = true;
    } catch (const SerialError& error) {
      ShowLinkError(platform.Dialogs, error);
    } catch (const RestoreLinkLost&) {
      // The user has been told.
    }
  }
  // Otherwise the read that follows does it.
  if (CloseRequested || !ReadPending || !link.IsOpen()) BecomeIdle();
}

void frmRestore::ReadRadio() {
  {
    ++reads;
    const AtEnd underWay([this] { --reads; });
    ReadIdle = false;
    ReadPending = false;
    UpdateTimer();
    try {
      reader.Run();
      programmer.ShowTaken();
    } catch (const RestoreLinkLost&) {
      Unload();
      return;
    } catch (const SerialError& error) {
      ResetProgress();
      if (error.Number == SerialError::PortNotAvailable) {
        platform.Dialogs.Message(
            {"The selected COM port is not available. Please select another port.", "Error",
             Icon::Exclamation, Buttons::Ok, error.Details});
      }
    }
  }
  BecomeIdle();
}

void frmRestore::BecomeIdle() {
  if (!Loaded()) return;
  if (CloseRequested) {
    Unload();
    return;
  }
  ReadIdle = true;
  RunWaiting();
}

void frmRestore::OpenConfig_Click() {
  if (reads > 0 || loads > 0 || taskRuns) return;
  Load([this] { loader.OpenConfiguration(); });
  RunWaiting();
}

void frmRestore::Load(const std::function<void()>& load) {
  ++loads;
  const AtEnd underWay([this] { --loads; });
  load();
}

void frmRestore::LoadWhenRead(const std::filesystem::path& file, bool tickDiffering) {
  fileToLoad = file;
  tickWhenLoaded = tickDiffering;
  RunWhenFree(Task::Load);
}

void frmRestore::LoadChosen() {
  loader.Load(fileToLoad);
  if (tickWhenLoaded && Loaded()) TickToRestore(*this);
}

void frmRestore::RunWhenFree(Task task) {
  if (std::find(waiting.begin(), waiting.end(), task) == waiting.end()) waiting.push_back(task);
  RunWaiting();
}

void frmRestore::RunWaiting() {
  // While the timer runs, a read is to come. A save behind a programming run waits for it too.
  const auto free = [this] { return reads == 0 && loads == 0 && !taskRuns && !Timer1.Enabled(); };
  while (Loaded() && !waiting.empty() && free()) {
    const Task next = waiting.front();
    waiting.erase(waiting.begin());
    Run(next);
  }
}

void frmRestore::Run(Task task) {
  if (task == Task::Load) return Load([this] { LoadChosen(); });
  const auto underWay = Raised(taskRuns);
  if (task == Task::Program) {
    ProgramSelected();
  } else if (tbr_SaveConfig.Enabled()) {
    // Still so: the click may have waited for a read that brought nothing.
    SaveConfiguration();
  }
}

void frmRestore::KeepBefore() {
  const auto ticked = [](const RestoreRowControls& row) { return row.Check.Checked(); };
  if (!BeforeOverwrite || !std::ranges::any_of(Rows, ticked)) return;
  RadioTexts texts;
  for (const RestoreRowControls& row : Rows) {
    if (row.Shown() && row.Current.Text() != NoValue) texts[row.Row.Id] = row.Current.Text();
  }
  BeforeOverwrite(texts);
}

void frmRestore::ProgramSelected() {
  StopReadTimer();
  KeepBefore();
  // What is programmed until the window closes is told together.
  if (!std::exchange(programmed, true)) main.Sent.Forget();
  WithLinkErrors(platform.Dialogs, [this] {
    programmer.Run();
    CheckEach(*this, false);
    ReadPending = true;
    StartReadTimer();
  });
}

void frmRestore::SaveConfiguration() {
  ReadIdle = false;
  session.AskForRead();
  platform.Events.Pump();
  const auto path = saver.ChooseFile();
  if (path && Loaded()) SaveTo(*path);
  BecomeIdle();
}

void frmRestore::SaveTo(const std::filesystem::path& path) {
  Enabled = false;
  const AtEnd again([this] { Enabled = true; });
  try {
    saver.Write(path);
  } catch (const SerialError& error) {
    return ShowLinkError(platform.Dialogs, error);
  } catch (const RestoreLinkLost&) {
    // The user has been told.
    return;
  } catch (const FileError& error) {
    platform.Dialogs.Message(
        {std::string("The configuration was not saved.\r\n\r\n") + error.what(), "File Error",
         Icon::Exclamation});
    return;
  }
  if (CloseRequested) Unload();
  Enabled = true;
  saver.ShowSaved();
}

}  // namespace quillmark
