#include "app/held_controls.h"

#include <initializer_list>

namespace quillmark {

HeldControls::HeldControls(frmOrvalent& window) : main(window) {
  for (Control* control : std::initializer_list<Control*>{
           &main.frQuick, &main.InfoFrame, &main.ButtonAdv, &main.ButtonZoneData, &main.ButtonRSSI,
           &main.mnuSpecial, &main.mnuPort, &main.mnuOpenLog, &main.mnuRecent, &main.mnuOpenConfig,
           &main.mnuOpenPreset, &main.mnuRestoreBefore, &main.mnuAbout, &main.mnuVersions,
           &main.tbr_Properties, &main.tbr_OpenLogFile}) {
    Hold(*control, false);
  }
  for (Frame& frame : main.NetSet) Hold(frame, false);
  Hold(main.tbr_Login, true);
  Hold(main.tbr_Logout, true);
}

void HeldControls::Hold(Control& control) { Hold(control, true); }

void HeldControls::Hold(Control& control, bool ofLink) {
  held.push_back({&control, control.Enabled(), ofLink});
  control.Enabled = false;
}

void HeldControls::HoldAgain() {
  for (Held& each : held) {
    if (!each.What->Enabled()) continue;
    each.WasEnabled = true;
    each.What->Enabled = false;
  }
}

HeldControls::~HeldControls() {
  for (const Held& each : held) {
    // Controls of the link stay off when the link is gone.
    if (each.WasEnabled && (!each.OfLink || main.tbr_Disconnect.Enabled())) {
      each.What->Enabled = true;
    }
  }
}

}  // namespace quillmark
