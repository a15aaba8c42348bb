#pragma once

#include <string>
#include <vector>

#include "app/frmOrvalent.h"
#include "platform/dialogs.h"
#include "session/session.h"

namespace quillmark {

// What programming from a file would bring about at the connected radio, by the last read of it and
// by what the catalogue knows. A setting that the file leaves out gets the default set's value.
struct ProgramPlan {
  std::vector<std::string> Changes;  // "Power Level: PWR 30 dBm becomes PWR 25"
  std::vector<std::string> Unread;   // no value of the radio to compare with: "XMAP 0000000F"
  std::vector<std::string> Unknown;  // lines of the file, where revision or mode lack the setting
  std::vector<std::string> Refused;  // lines of the file with a value that radios don't take
  int Same = 0;
};

// `defaults` goes out in front of `lines`, those of the file.
// As long as the radio has not been read since the connect, its mode and revision are unknown, what
// the window shows of them notwithstanding.
ProgramPlan PlanOf(const std::vector<std::string>& defaults, const std::vector<std::string>& lines,
                   frmOrvalent& main, const Revision& revision);

// The question whether to go on, with counts. Its details are `cost`, what else a Yes brings about,
// and the settings behind the counts.
MessageBox QuestionOf(const ProgramPlan& plan, const std::string& cost);

}  // namespace quillmark
