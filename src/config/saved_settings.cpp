#include "config/saved_settings.h"

#include <algorithm>
#include <utility>

#include "config/direct_run.h"
#include "text/text.h"

namespace quillmark {

namespace {

// The characters from position `from` up to, not including, the last three of the reply.
std::ptrdiff_t TailLength(const std::string& reply, std::size_t from) {
  return static_cast<std::ptrdiff_t>(reply.size()) - static_cast<std::ptrdiff_t>(from) - 2;
}

std::string MustCut(const std::string& reply, std::size_t from, std::ptrdiff_t length) {
  auto text = Mid(reply, static_cast<std::ptrdiff_t>(from), length);
  if (!text) throw RunFailed{"A reply of the radio can't be read."};
  return *text;
}

std::string TailCut(const std::string& reply, std::size_t from) {
  return MustCut(reply, from, TailLength(reply, from));
}

std::string DlinkLines(const std::string& reply, std::size_t from) {
  const std::size_t lastBlank = reply.rfind(' ') + 1;  // 0 without one
  const auto length = static_cast<std::ptrdiff_t>(lastBlank) - static_cast<std::ptrdiff_t>(from);
  return MustCut(reply, from, length) + "\r\n" +
         (Contains(reply, "(ON)") ? "DLINK ON" : "DLINK OFF");
}

}  // namespace

std::vector<const Setting*> FileOrder(std::span<const Setting> settings) {
  constexpr std::pair<SettingId, SettingId> behind[] = {{SettingId::XADDR, SettingId::XMIN},
                                                        {SettingId::XADDR, SettingId::XMAX},
                                                        {SettingId::DLINK, SettingId::SoftRTU}};
  std::vector<const Setting*> order;
  for (const Setting* setting : SavedOrder(settings)) {
    order.push_back(setting);
    for (const auto& [place, id] : behind) {
      if (setting->Id == place) order.push_back(&settings[PlaceOf(id)]);
    }
  }
  return order;
}

std::string SavedCommand(const Setting& setting) {
  return setting.Saved->Command != nullptr ? setting.Saved->Command : setting.Word;
}

std::string SavedWord(const Setting& setting) {
  return setting.Saved->Reply != nullptr ? setting.Saved->Reply : setting.Reply;
}

bool GivesLine(const Setting& setting, const Revision& revision, std::string_view modeText) {
  const SettingSaved& saved = *setting.Saved;
  if (saved.MasterOnly && !IsOneOf(Modes::Master, modeText)) return false;
  // A radio that can't be given a value in its mode says that it has none.
  if (saved.NotWith != nullptr && !IsOneOf(setting.View.Clicked, modeText)) return false;
  return saved.LineWithout != nullptr || setting.Revisions.HoldsIfUnknown(revision);
}

std::string AsReply(const std::string& text) { return "\r\n" + text + "\r\n>"; }

bool IsOneLine(const std::string& text) { return text.find_first_of("\r\n") == std::string::npos; }

std::string SavedFirmware(std::string value) {
  for (std::size_t at = value.find("\r\n"); at != std::string::npos; at = value.find("\r\n")) {
    value.replace(at, 2, " ");
  }
  std::erase_if(value, [](char c) { return c >= 0 && c < ' '; });
  return value;
}

std::optional<std::string> CutSetting(const Setting& setting, const std::string& original) {
  constexpr std::size_t shortestOwner = 6;
  constexpr std::size_t lineEnd = 2;
  const SettingSaved& saved = *setting.Saved;
  std::string reply = original;
  if (saved.Cut == SavedCut::Owner) {
    if (reply.size() < shortestOwner) return std::nullopt;
    return SavedCommand(setting) + " " + TailCut(reply, lineEnd + 1);
  }
  if (saved.Cut == SavedCut::AlarmMask || saved.Cut == SavedCut::NoColon) std::erase(reply, ':');
  const std::size_t at = FindAnyCase(reply, SavedWord(setting));
  if (at == 0) {
    if (saved.LineWithout == nullptr) return std::nullopt;
    return saved.LineWithout;
  }
  if (saved.NotWith != nullptr && Contains(reply, saved.NotWith)) return std::nullopt;
  switch (saved.Cut) {
    case SavedCut::SixWide:
      return MustCut(reply, at, std::min<std::ptrdiff_t>(6, TailLength(reply, at)));
    case SavedCut::TenWide:
      return MustCut(reply, at, std::min<std::ptrdiff_t>(10, TailLength(reply, at)));
    case SavedCut::AlarmMask:
      return "A" + TailCut(reply, at);
    case SavedCut::Dlink:
      return DlinkLines(reply, at);
    case SavedCut::Owner:
    case SavedCut::Tail:
    case SavedCut::NoColon:
      break;
  }
  return TailCut(reply, at);
}

}  // namespace quillmark
