#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Programs one setting at a click on its value: asks for a new one and sends one command. The box
// tells what radios take and what is wrong with an answer, and sends it all the same: the radio is
// the only judge of values. The read that follows shows what it holds now. Everything given to
// it outlives it.
class SettingProgrammer {
 public:
  SettingProgrammer(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);

  // Joins the rows of the settings view to their handlers, but for those that open a window.
  void Wire();

  // The line that gives a setting this value, as it is typed into the box of its row.
  static std::string CommandFor(const Setting& setting, const std::string& value);
  // A setting and the line that is to change it.
  struct Change {
    const Setting* What;  // of the catalogue
    std::string Command;
  };
  // Sends these as one act, in their order, when nobody else talks to the radio, without asking
  // anybody. The read that it asks for shows what the radio holds then.
  void Send(std::vector<Change> changes);

 private:
  void InputRow_Click(const SettingRow& row);
  // What a radio would not take of an answer, as a sentence; empty: nothing.
  std::string Objection(const SettingRow& row, std::string_view answer) const;
  void OnOffRow_Click(const SettingRow& row);
  void DeviceType_Click();
  void ShowSync_Click();
  void AlarmInfo_Click();
  // Runs `act`, which talks to the radio, when nobody else does; on a closed port not at all. What
  // `entry` starts runs once, however often that is clicked meanwhile.
  void Talk(const Control* entry, std::function<void()> act);
  // Sends the command and waits for the radio to take it, 3 s at most; the outcome shows in the
  // read that it asks for.
  void Program(const std::string& command, std::string_view awaited = "PROGRAMMED OK");
  void SendAll(const std::vector<Change>& changes);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
};

}  // namespace quillmark
