#pragma once

#include <cstdint>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// The progress window of a long job at the radio. Not modal; it stays above all other windows, and
// comes back when another one is made the active one. Whoever runs the job shows it, sets what it
// says, and stops when TransferStop has become True.
class frmProgram : public Form {
 public:
  frmProgram(Platform& platform, Session& session);

  Label Label1;              // what is being done
  ProgressBar ProgressBar1;  // percent
  Label lblLeft;             // bytes and time left; hidden until ShowBytes
  Button Command1;           // disabled by a job that cannot be cancelled
  // Asked in the place of Command1 before a cancel counts. The job goes on meanwhile.
  Label lblQuestion;
  Button cmdYes, cmdNo;

  // Puts it on the screen.
  void Show();
  // How far a transfer has come. `elapsed` since its first byte.
  void ShowBytes(std::int64_t sent, std::int64_t length, Duration elapsed);
  // Sets TransferStop and unloads the window.
  void Stop();

 protected:
  void Form_Activate() override;
  void Form_Deactivate() override;
  void Form_Close() override { Command1.Click(); }

 private:
  void Ask(bool asking);

  Platform& platform;
  Session& session;
};

}  // namespace quillmark
