#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/frmOrvalent.h"
#include "app/held_controls.h"
#include "conversation/conversation.h"
#include "link/connection.h"
#include "platform/platform.h"

namespace quillmark {

// Thrown inside a run at the radio that can't go on: no prompt in time, the link lost, a reply that
// can't be cut, nothing to send. Only the run's own failure path catches it.
struct RunFailed {
  std::string Why{};  // a sentence for the terminal; empty where a box has told it
};

class QuickTask;

// What the long runs at the radio have in common (saving, programming, the roles): they read the
// port themselves, under DirectPortMode, and show in the terminal and the status bar how far they
// have come. Everything given to it outlives it.
class DirectRun {
 public:
  DirectRun(Platform& platform, frmOrvalent& main, Connection& connection, Conversation& radio);

  // Takes the line: the receive handler leaves the port alone, and the watchdog starts afresh.
  void Begin();
  void ShowTitle(std::string_view word);  // alone in the terminal, such as "SAVING."
  void ShowStatus(const std::string& text) { main.pnl_Status.Text = text; }
  void Dot();

  // The bar in the status bar: `done` of `all` settings.
  void ShowProgress(int done, int all);
  void HideProgress() { main.barRun.Visible = false; }

  // Sends the text and a carriage return. Throws SerialError.
  void Send(const std::string& text) { radio.Say(text); }
  void Sleep(int ms);
  // Throws away what has arrived.
  void DropInput();

  // Waits until `done` holds, under the watchdog. Throws RunFailed when that fires or the link
  // goes.
  void Await(const std::function<bool()>& done);
  // Asks for a value, under the watchdog, whose limit holds instead of the question's. Throws
  // RunFailed when that fires or the link goes.
  std::optional<std::string> Ask(Conversation::Question question);
  // Throws RunFailed when the watchdog has fired or the link has gone.
  void CheckLink() const;

  // What keeps a task from being started, as a sentence; empty: nothing. Set by the application.
  std::function<std::string()> Obstacle;
  // False, with a box, while something keeps it.
  bool MayStart();
  bool UnderWay() const { return task != nullptr; }
  // Asks whether to program the radio anew. Below the question stands whose settings go.
  bool ConfirmClearing(const std::string& question, const std::string& title);
  // "This clears all settings of SN 00123456 first."; empty once a run has done so.
  std::string ClearingNote() const;
  // Told, while the task has the line, before a run overwrites what the radio holds; `run` is what
  // it does, such as "a preset". Set by the application; may be empty.
  std::function<void(const std::string& run)> BeforeOverwrite;
  void KeepBefore(const std::string& what);
  // Runs the task that `entry` starts when the line is free, if it may still start then.
  void WhenFree(const Control& entry, std::function<void()> act);
  // Asks for a read of the radio. On a closed port that means a connect; only one is tried in a
  // task, so that a pulled plug brings no row of boxes.
  void ReadRadioAgain();

 private:
  friend class QuickTask;

  // The watchdog, for the length of a block.
  class Watch {
   public:
    explicit Watch(DirectRun& run);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    DirectRun& run;
  };
  bool Broken() const;

  Platform& platform;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  QuickTask* task = nullptr;
  bool reconnectTried = false;
};

// A quick task from the click to its end: nothing else that talks to the radio can be started
// meanwhile.
class QuickTask {
 public:
  explicit QuickTask(DirectRun& run);
  ~QuickTask();
  QuickTask(const QuickTask&) = delete;
  QuickTask& operator=(const QuickTask&) = delete;

 private:
  friend class DirectRun;

  DirectRun& run;
  LineTurns::Turn turn;
  HeldControls controls;
};

}  // namespace quillmark
