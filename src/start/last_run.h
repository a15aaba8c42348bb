#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/frmOrvalent.h"
#include "platform/platform.h"
#include "runs/frmSentSettings.h"
#include "runs/outcomes.h"

namespace quillmark {

// Tells what the radio has made of the settings that were sent last: in the notice, at the rows
// that were refused or differ, and in a window of its own. It is known when the read that follows
// has ended, and stands until the next settings are sent, the link ends, or another radio is there.
// Everything given to it outlives it.
class LastRun {
 public:
  LastRun(Platform& platform, frmOrvalent& main);
  ~LastRun();
  LastRun(const LastRun&) = delete;
  LastRun& operator=(const LastRun&) = delete;

  void ReadDone();
  // `letGo`: the user has ended the link.
  void LinkEnded(bool letGo);

 private:
  bool IsOtherRadio() const;
  std::string ValueOf(SettingId id) const;
  void Tell(std::string sentence, const std::vector<JudgedSetting>& settings);
  void ShowTable();
  void Drop();

  Platform& platform;
  frmOrvalent& main;
  bool judged = false;
  std::string serial;  // of the radio that got the settings; empty: not known yet
  std::string sentence, table;
  std::weak_ptr<frmSentSettings> window;
};

}  // namespace quillmark
