#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "app/frmOrvalent.h"
#include "catalogue/radio_texts.h"
#include "controls/form.h"
#include "link/connection.h"
#include "platform/platform.h"
#include "restore/restore_controls.h"
#include "restore/restore_link.h"
#include "restore/restore_load.h"
#include "restore/restore_program.h"
#include "restore/restore_read.h"
#include "restore/restore_save.h"
#include "session/session.h"

namespace quillmark {

// Sets the connected radio beside a configuration file, row by row: the radio is read, a file
// opened, rows ticked, and just those programmed; or the radio's settings go into a file. Modal. It
// has the port to itself, on a serial control of its own, and gives it back when it is unloaded,
// whichever way that comes. Everything given to it outlives it.
class frmRestore : public Form, public RestoreControls {
 public:
  frmRestore(Platform& platform, Session& session, frmOrvalent& main, Connection& connection);

  void MSComm2_OnComm();
  // Unloads the window without a word: the program is about to end.
  void EndProgram();
  // Loads a file that the user has chosen already, when the radio has been read; with
  // `tickDiffering` the rows to restore are ticked then.
  void LoadWhenRead(const std::filesystem::path& file, bool tickDiffering = false);
  // Asks for a read of the radio.
  void RefreshSettings();
  // Told before rows are programmed, with what the radio's column shows. May be empty.
  std::function<void(const RadioTexts&)> BeforeOverwrite;

 protected:
  void Form_Close() override { CloseButton_Click(); }
  void Form_Unload() override;

 private:
  enum class Task { Load, Program, Save };

  void LayOut();
  void Wire();
  void CloseButton_Click();
  void OpenConfig_Click();
  // Now, or when the reads and loads that run have ended.
  void RunWhenFree(Task task);
  void RunWaiting();
  void Run(Task task);

  void Timer1_Timer();
  void OpenAndWake();
  void ReadRadio();
  void LoadChosen();
  void KeepBefore();
  void Load(const std::function<void()>& load);
  void ProgramSelected();
  void SaveConfiguration();
  void SaveTo(const std::filesystem::path& path);
  // The end of a wake, a read or a save.
  void BecomeIdle();

  void StartReadTimer();
  void StopReadTimer();
  // The timer runs only while a read is wanted: a tick a millisecond costs.
  void UpdateTimer();
  // A port that is gone brings no read, whose end the window would wait for.
  void NotePort();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  RestoreLink link;
  RestoreReader reader;
  RestoreLoader loader;
  RestoreSaver saver;
  RestoreProgrammer programmer;
  bool programmed = false;
  bool programEnds = false;
  bool started = false;
  bool readTimerStarted = false;
  int reads = 0;  // under way; the wake is one
  int loads = 0;
  bool taskRuns = false;
  std::vector<Task> waiting;
  std::filesystem::path fileToLoad;
  bool tickWhenLoaded = false;
};

}  // namespace quillmark
