#include "diagnostics/diagnostic_buttons.h"

#include "diagnostics/frmRSSI.h"
#include "diagnostics/frmZoneData.h"
#include "link/serial_failure.h"

namespace quillmark {

DiagnosticButtons::DiagnosticButtons(Platform& machine, frmOrvalent& window,
                                     Conversation& conversation)
    : platform(machine), main(window), radio(conversation) {}

void DiagnosticButtons::Wire() {
  // These windows talk to the radio while they are open, so they wait for their turn.
  main.ButtonRSSI.OnClick = [this] {
    radio.Turns.WhenFree(main.ButtonRSSI, [this] { ButtonRSSI_Click(); });
  };
  main.ButtonZoneData.OnClick = [this] {
    radio.Turns.WhenFree(main.ButtonZoneData, [this] { ButtonZoneData_Click(); });
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
  const LineTurns::Turn turn(radio.Turns);
  const auto window = std::make_shared<Window>(platform, main, radio);
  shown = window;
  platform.Windows.ShowModal(window, main);
}

}  // namespace quillmark
