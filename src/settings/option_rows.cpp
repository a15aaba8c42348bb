#include "settings/option_rows.h"

#include <memory>
#include <string>

#include "prefs/utilities.h"
#include "radio/reply.h"
#include "settings/frmDLINKOptions.h"
#include "settings/frmDTYPEOptions.h"
#include "settings/frmRTUOptions.h"
#include "settings/frmXMAP.h"
#include "text/numbers.h"

namespace quillmark {

OptionRows::OptionRows(Platform& machine, Session& shared, frmOrvalent& window, MainTimer& timer)
    : platform(machine), session(shared), main(window), ticks(timer) {}

void OptionRows::Wire() {
  const auto show = [this](const std::shared_ptr<Form>& form) {
    platform.Windows.ShowModal(form, main);
    session.RefreshRequested = true;
  };
  main.DTYPE.OnClick = [this, show] { show(std::make_shared<frmDTYPEOptions>(platform, main)); };
  main.DLINK.OnClick = [this, show] { show(std::make_shared<frmDLINKOptions>(platform, main)); };
  main.SoftRTU.OnClick = [this, show] { show(std::make_shared<frmRTUOptions>(platform, main)); };
  main.XMAP.OnClick = [this] { XMAP_Click(); };
}

void OptionRows::XMAP_Click() {
  if (!platform.MSComm1.PortOpen()) return;
  // A read in between would put its replies in the place of the map.
  ++ticks.LineHolders;
  struct Released {
    int& holders;
    ~Released() { --holders; }
  };
  std::string map;
  try {
    const Released released{ticks.LineHolders};
    map = ReadMap();
  } catch (const SerialError&) {
    return;
  }
  const auto window = std::make_shared<frmXMAP>(platform, session, main, map);
  window->CurrentButton.Click();
  platform.Windows.ShowModal(window, main);
}

// Eight hex digits behind the word; anything else is no map.
std::string OptionRows::ReadMap() {
  session.RxBuffer = "";
  platform.MSComm1.Output("xmap\r");
  WaitUntil(platform.Events, Seconds(3), [this] {
    return HasReply(session.RxBuffer, "xmap", session.InSetupMode) || !platform.MSComm1.PortOpen();
  });
  WaitMilliseconds(platform.Events, 200);
  constexpr std::size_t wordLength = 5;
  const std::string reply = CutReply(session.RxBuffer, "xmap", session.InSetupMode).value_or("");
  if (reply.size() != wordLength + 8 || HexToBin(reply.substr(wordLength)).size() != 32) return {};
  return reply.substr(wordLength);
}

}  // namespace quillmark
