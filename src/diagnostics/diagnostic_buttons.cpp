#include "diagnostics/diagnostic_buttons.h"

#include "diagnostics/frmRSSI.h"
#include "diagnostics/frmZoneData.h"
#include "link/serial_failure.h"

namespace quillmark {

DiagnosticButtons::DiagnosticButtons(Platform& machine, Session& shared, frmOrvalent& window,
                                     MainTimer& timer)
    : platform(machine), session(shared), main(window), ticks(timer) {}

void DiagnosticButtons::Wire() {
  // A read that is running would have its replies mixed with what these windows ask for.
  main.ButtonRSSI.OnClick = [this] {
    ticks.WhenFree(main.ButtonRSSI, [this] { ButtonRSSI_Click(); });
  };
  main.ButtonZoneData.OnClick = [this] {
    ticks.WhenFree(main.ButtonZoneData, [this] { ButtonZoneData_Click(); });
  };
}

void DiagnosticButtons::CloseWindow() {
  if (const auto window = shown.lock()) window->Unload();
}

void DiagnosticButtons::ButtonRSSI_Click() {
  if (PortIsOpen(platform.Dialogs, platform.MSComm1)) Show<frmRSSI>();
}

void DiagnosticButtons::ButtonZoneData_Click() { Show<frmZoneData>(); }

template <class Window>
void DiagnosticButtons::Show() {
  ++ticks.LineHolders;
  struct Released {
    int& holders;
    ~Released() { --holders; }
  } released{ticks.LineHolders};
  const auto window = std::make_shared<Window>(platform, session, main);
  shown = window;
  platform.Windows.ShowModal(window, main);
}

}  // namespace quillmark
