#include "start/frmSplash.h"

#include <algorithm>
#include <string>
#include <utility>

#include "app/version.h"

namespace quillmark {

frmSplash::frmSplash(EventLoop& events, Desktop& desktop, const Session& session,
                     std::function<void()> unloaded)
    : Form("frmSplash"),
      pBar1(*this, this, "pBar1", 0, 100, 0),
      lblProductName(*this, this, "lblProductName", "Quillmark SS"),
      lblCompanyProduct(*this, this, "lblCompanyProduct", "Configuration Software"),
      lblKelvor(*this, this, "lblKelvor", "KELVOR"),
      lblCorporation(*this, this, "lblCorporation", "CORPORATION"),
      lblCompany(*this, this, "lblCompany", "Copyright \xA9 2026 Kelvor Corporation"),
      lblURL(*this, this, "lblURL", "https://www.kelvor.example"),
      lblPlatform(*this, this, "lblPlatform"),
      Date(*this, this, "Date", "07/7/2009"),
      Timer1(*this, "Timer1", events, 15, false),
      onUnload(std::move(unloaded)),
      tickLimit(session.SplashAboutMode ? 160 : 40) {
  Caption = ProgramTitle;
  pBar1.Visible = !session.SplashAboutMode;
  pBar1.Min = 1;
  pBar1.Max = 40;
  lblURL.ForeColor = 0xFF0000;
  lblURL.OnClick = [this, &desktop] { desktop.OpenAddress(lblURL.Text()); };
  lblPlatform.Text = std::string("Version ") + VersionText;
  for (Label* label : {&lblCompany, &lblCompanyProduct, &lblCorporation, &lblPlatform,
                       &lblProductName, &lblKelvor, &Date}) {
    label->OnClick = [this] { Unload(); };
  }
  Timer1.OnTick = [this] { Timer1_Timer(); };
  Timer1.Enabled = true;
}

void frmSplash::Timer1_Timer() {
  if (tickCount > tickLimit) {
    Unload();
    return;
  }
  ++tickCount;
  pBar1.Value = std::clamp(tickCount, pBar1.Min(), pBar1.Max());
}

void frmSplash::Form_Unload() {
  Timer1.Enabled = false;
  if (onUnload) onUnload();
}

void frmSplash::Dismiss() {
  onUnload = nullptr;
  Unload();
}

}  // namespace quillmark
