#pragma once

#include <span>

#include "app/frmOrvalent.h"

namespace quillmark {

// A setting that an input box asks for. The answer loses the row's word, if it is in it, and goes
// out behind the command; some words are cut one character short, so that a blank stays in front.
struct InputRow {
  enum class When { Always, Master, MasterOrExtension };
  enum class Special { None, NetworkAddress, AlarmMask, AlarmSense, Xrssi };

  SettingRow SettingsRows::*Field;
  const char* Title;
  const char* Prompt;
  const char* Word;
  int Skip;
  const char* Command;
  When Condition = When::Always;
  Special Kind = Special::None;
  const char* PromptFrom200 = nullptr;  // instead of Prompt, from revision 200 on
};

// A setting that is ON or OFF; the box asks whether to turn it.
struct OnOffRow {
  SettingRow SettingsRows::*Field;
  const char* Title;
  bool AtMaster;  // only at a master; else only off it
  const char* On;
  const char* Off;
  const char* TurnOff;
  const char* TurnOn;
  const char* SendOff;
  const char* SendOn;
};

std::span<const InputRow> InputRows();
std::span<const OnOffRow> OnOffRows();

}  // namespace quillmark
