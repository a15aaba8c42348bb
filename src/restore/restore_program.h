#pragma once

#include <string>
#include <vector>

#include "restore/restore_controls.h"
#include "restore/restore_link.h"

namespace quillmark {

// The commands, without their carriage returns, that program a row's new text.
std::vector<std::string> RestoreCommands(const RestoreRow& row, const std::string& text);

// Programs the ticked rows of the store and restore window, and tells in it how far that has come
// and how it ended. Everything given to it outlives it.
class RestoreProgrammer {
 public:
  RestoreProgrammer(RestoreControls& controls, RestoreLink& link, SentSettings& sent);

  // Sends the new value of each ticked row, in the order of the table. A radio that shows no prompt
  // ends a command, not the run. Throws SerialError.
  void Run();
  // The radio has been read again: tells which of the settings sent it has now. What it has said to
  // a command is told beside a setting that it has not.
  void ShowTaken();

 private:
  // A setting that is to be programmed, as it was when the run began.
  struct Job {
    RestoreRowControls* Row;
    std::string Text;
    bool Sent = false;
    std::string Said{};  // the radio's words that were no consent
  };

  std::vector<std::string> Commands() const;
  void Send(std::size_t number);
  void NoteReply();
  static bool HasTaken(const Job& job);
  void ShowSent();

  RestoreControls& controls;
  RestoreLink& link;
  SentSettings& record;
  std::vector<Job> jobs;
  // The command that the next text from the radio answers.
  Job* asked = nullptr;
  std::string command;
};

}  // namespace quillmark
