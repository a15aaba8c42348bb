#include "settings/option_rows.h"

#include <memory>
#include <string>

#include "platform/utilities.h"
#include "settings/frmDLINKOptions.h"
#include "settings/frmDTYPEOptions.h"
#include "settings/frmRTUOptions.h"
#include "settings/frmXMAP.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

OptionRows::OptionRows(Platform& machine, Session& shared, frmOrvalent& window,
                       Conversation& conversation)
    : platform(machine), session(shared), main(window), radio(conversation) {}

void OptionRows::Wire() {
  const auto show = [this](const std::shared_ptr<Form>& form) {
    platform.Windows.ShowModal(form, main);
    session.AskForRead();
  };
  main.At(SettingId::DTYPE).OnClick = [this, show] {
    show(std::make_shared<frmDTYPEOptions>(platform, main, radio));
  };
  main.At(SettingId::DLINK).OnClick = [this, show] {
    show(std::make_shared<frmDLINKOptions>(platform, main, radio));
  };
  main.At(SettingId::SoftRTU).OnClick = [this, show] {
    show(std::make_shared<frmRTUOptions>(platform, main, radio));
  };
  // The window shows the radio's map, so it comes when that has been read.
  SettingRow& map = main.At(SettingId::XMAP);
  map.OnClick = [this, &map] { radio.Turns.WhenFree(map, [this] { XMAP_Click(); }); };
}

void OptionRows::XMAP_Click() {
  if (!radio.Open()) return;
  std::string map;
  try {
    const LineTurns::Turn turn(radio.Turns);
    map = ReadMap();
  } catch (const SerialError&) {
    return;
  }
  if (!radio.Open()) return;
  if (map.empty()) {
    platform.Dialogs.Message(
        {"The radio's extension map could not be read. The boxes do not show it.",
         "XMAP Configuration", Icon::Exclamation});
  }
  const auto window = std::make_shared<frmXMAP>(platform, session, main, radio, map);
  window->CurrentButton.Click();
  platform.Windows.ShowModal(window, main);
}

// Eight hex digits behind the word; anything else is no map.
std::string OptionRows::ReadMap() {
  constexpr std::string_view word = "XMAP ";
  constexpr std::size_t digits = 8;
  constexpr int attempts = 2;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const auto reply = radio.Ask({.Command = "xmap", .Limit = Seconds(3), .Opening = word});
    WaitMilliseconds(platform.Events, 200);
    if (!reply) return {};
    std::string map = reply->size() < word.size() ? std::string() : reply->substr(word.size());
    if (map.size() == digits && HexToBin(map).size() == 4 * digits) return map;
  }
  return {};
}

}  // namespace quillmark
