#pragma once

#include <optional>
#include <string>

#include "app/frmOrvalent.h"
#include "catalogue/radio_texts.h"
#include "conversation/conversation.h"
#include "link/connection.h"
#include "platform/platform.h"
#include "radio/read_progress.h"
#include "session/session.h"

namespace quillmark {

// Reads every setting of the radio into the rows of the main window, in the order of SettingId, one
// exchange at a time: some 40 of them, a few seconds. A read that fails leaves its row as it was.
// Everything given to it outlives it.
class ReadCycle {
 public:
  ReadCycle(Platform& platform, Session& session, frmOrvalent& main, Connection& connection,
            Conversation& radio);

  // True when it came to its end and the radio has answered each question. Throws SerialError when
  // the port is or gets closed.
  bool Run();

  // What the last read has brought.
  struct Brought {
    RadioTexts Texts;
    // It ran to its end, and none of the settings that a file holds was missed.
    bool Whole = false;
    int Epoch = 0;  // of the conversation
  };
  const Brought& Last() const { return last; }

 private:
  // False when the radio is in its loader, where there is nothing to read.
  bool CheckRadio(ReadProgress& progress);
  void ShowInLoader();
  void ReadRow(SettingRow& row, ReadProgress& progress);
  // The setting's value; nothing when the radio gives none.
  std::optional<std::string> Ask(const Setting& setting);
  // Notes the value, or that there is none.
  void Note(const Setting& setting, const std::optional<std::string>& value);
  // What the setting brings about.
  void AfterRow(SettingId id, const std::optional<std::string>& value);
  void TakeRevision(const std::optional<std::string>& value);
  void FindLoginState(const std::string& ownerName);
  void Pause80();

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Connection& connection;
  Conversation& radio;
  Brought last;
  bool missed = false;  // a setting of a file, in the read that runs
};

}  // namespace quillmark
