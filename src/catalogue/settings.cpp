#include "catalogue/settings.h"

#include <algorithm>
#include <array>

#include "catalogue/settings_diagnostics.h"
#include "catalogue/settings_general.h"
#include "catalogue/settings_network_1.h"
#include "catalogue/settings_network_2.h"
#include "catalogue/settings_radio_1.h"
#include "catalogue/settings_radio_2.h"
#include "catalogue/settings_store_and_forward.h"
#include "text/text.h"

namespace quillmark {

namespace {

template <std::size_t... Sizes>
constexpr auto Joined(const Setting (&... tabs)[Sizes]) {
  std::array<Setting, (Sizes + ...)> all{};
  auto next = all.begin();
  ((next = std::copy(std::begin(tabs), std::end(tabs), next)), ...);
  return all;
}

constexpr auto settings = Joined(GeneralSettings, Radio1Settings, Radio2Settings, Network1Settings,
                                 Network2Settings, StoreAndForwardSettings, DiagnosticsSettings);

// A setting that goes right before another one, against the order of the table.
struct Ahead {
  SettingId First;
  SettingId Before;
};
// So the files of the main window have it. Those of the store and restore window go by the table.
constexpr Ahead savedAhead{.First = SettingId::XRSSI, .Before = SettingId::XPRI};
// The upper end of the range is raised before the lower one, which may not lie above it.
constexpr Ahead programmedAhead{.First = SettingId::XMAX, .Before = SettingId::XMIN};

// --- What must hold of every row ---

template <class Holds>
constexpr bool Each(Holds holds) {
  return std::all_of(settings.begin(), settings.end(), holds);
}

template <std::size_t Size>
constexpr bool IsAmong(const Setting& setting, const SettingId (&list)[Size]) {
  return std::find(std::begin(list), std::end(list), setting.Id) != std::end(list);
}

constexpr bool IdsAreDense() {
  std::size_t place = 0;
  return Each([&place](const Setting& each) { return PlaceOf(each.Id) == place++; });
}
static_assert(IdsAreDense(), "The rows stand in the order of their ids, one each");
static_assert(settings.back().Id == SettingId::DiagOptions,
              "The last id has its row: a new last one is named here");

constexpr int WaysToClick(const Setting& setting) {
  return (setting.Input ? 1 : 0) + (setting.Switch ? 1 : 0) + (setting.OwnClick ? 1 : 0);
}
static_assert(Each([](const Setting& each) {
                return WaysToClick(each) == (*each.View.Tip == '\0' ? 0 : 1);
              }),
              "A row with a tip is clicked in one way, a row without one in none");

// A click shows a report of the radio, or reads again.
constexpr SettingId reports[] = {SettingId::AlarmInfo, SettingId::ShowSync};
static_assert(Each([](const Setting& each) {
                return IsAmong(each, reports) ||
                       each.Restored.has_value() == (WaysToClick(each) == 1);
              }),
              "What can be programmed can be restored");

// Asked for when its window is opened.
constexpr SettingId readOnDemand[] = {SettingId::XMAP};
static_assert(Each([](const Setting& each) {
                return each.Read.has_value() != IsAmong(each, readOnDemand);
              }),
              "Every setting is read");

// The main window's files have never held them.
constexpr SettingId notSaved[] = {SettingId::XMIN, SettingId::XMAX, SettingId::SoftRTU};
// A line for the reader's information.
constexpr SettingId savedOnly[] = {SettingId::DiagOptions};
static_assert(Each([](const Setting& each) {
                return each.Saved.has_value() ==
                       ((each.Restored && !IsAmong(each, notSaved)) || IsAmong(each, savedOnly));
              }),
              "What can be restored is saved");

// They tell one radio from another, so that no default set may touch them.
constexpr SettingId names[] = {SettingId::UnitAddr, SettingId::OwnerName, SettingId::OwnerMessage};
static_assert(Each([](const Setting& each) {
                return (each.Value.Factory != nullptr) ==
                       (each.Restored.has_value() && !IsAmong(each, names));
              }),
              "What can be restored has a factory value");

// Judging a value reads these facts.
constexpr bool HasBounds(const SettingValue& value) {
  const bool range = value.Least && value.Most && *value.Least <= *value.Most;
  const bool words = *value.Words != '\0';
  switch (value.Form) {
    case ValueForm::Text:
      return value.Longest.has_value();
    case ValueForm::Unit:
      return range && value.Digits;
    case ValueForm::Rate:
      return words && *value.Format != '\0';
    case ValueForm::Mask:
    case ValueForm::Map:
      return value.Digits.has_value();
    case ValueForm::Zones:
      return range && words && value.Digits;
    case ValueForm::Plain:
    case ValueForm::Switched:
      break;
  }
  return range || words;
}
static_assert(Each([](const Setting& each) { return !each.Restored || HasBounds(each.Value); }),
              "What can be restored tells what radios take");

// --- Cuts fit the words that they cut ---

constexpr std::size_t Digits(int number) { return number < 10 ? 1 : 1 + Digits(number / 10); }

constexpr std::size_t Length(const char* text) { return std::string_view(text).size(); }

// A cut of a fixed width takes the word, a blank and the whole value.
constexpr bool WidthFits(const Setting& setting) {
  const std::size_t head = Length(setting.Reply) + 1;
  switch (setting.Saved ? setting.Saved->Cut : SavedCut::Tail) {
    case SavedCut::SixWide:
      return head + 1 == 6;
    case SavedCut::TenWide:
      return head + Digits(*setting.Value.Most) + 1 + Length(setting.Value.Unit) == 10;
    default:
      return true;
  }
}
static_assert(Each(WidthFits), "A cut of a fixed width holds the longest value");

constexpr bool InputFits(const Setting& setting) {
  if (!setting.Input) return true;
  const std::string_view strips = setting.Input->Strips;
  if (setting.Input->KeepsBlank && !strips.ends_with(' ')) return false;
  return strips.empty() || (*setting.Reply != '\0' && strips.starts_with(setting.Reply));
}
static_assert(Each(InputFits), "An answer loses what the radio prints in front of the value");

std::vector<const Setting*> InOrder(std::span<const Setting> all, const Ahead& ahead) {
  std::vector<const Setting*> order;
  const Setting* const moved = &all[PlaceOf(ahead.First)];
  for (const Setting& setting : all) {
    if (setting.Id == ahead.Before) order.push_back(moved);
    if (&setting != moved) order.push_back(&setting);
  }
  return order;
}

}  // namespace

std::span<const Setting> AllSettings() { return settings; }

const Setting& SettingOf(SettingId id) { return settings[PlaceOf(id)]; }

std::vector<const Setting*> SavedOrder(std::span<const Setting> all) {
  auto order = InOrder(all, savedAhead);
  std::erase_if(order, [](const Setting* each) { return !each->Saved; });
  return order;
}

std::vector<const Setting*> ProgramOrder(std::span<const Setting> all) {
  auto order = InOrder(all, programmedAhead);
  std::erase_if(order, [](const Setting* each) { return !each->Restored; });
  return order;
}

std::string FileKey(const Setting& setting) {
  if (!setting.Restored) return {};
  return setting.Restored->Key != nullptr ? setting.Restored->Key : Upper(setting.Word);
}

std::vector<std::string> FactoryLines(const Setting& setting) {
  if (setting.Value.Factory == nullptr) return {};
  const std::string head = Upper(setting.Word) + " ";
  const std::string value = setting.Value.Factory;
  const std::size_t bracket = value.find(" (");
  if (bracket == std::string::npos) return {head + value};
  return {head + value.substr(0, bracket),
          head + value.substr(bracket + 2, value.size() - bracket - 3)};
}

bool RevisionGate::HoldsIfUnknown(const Revision& revision) const {
  const auto number = revision.Number();
  return !number || (*number >= From && *number < Below);
}

bool RevisionGate::HoldsBelowIfUnknown(const Revision& revision) const {
  const double number = revision.Number().value_or(0);
  return number >= From && number < Below;
}

bool IsOneOf(Modes modes, std::string_view modeText) {
  switch (modes) {
    case Modes::Master:
      return EqualAnyCase(modeText, "MODE M");
    case Modes::NotMaster:
      return !EqualAnyCase(modeText, "MODE M");
    case Modes::NotRemote:
      return !EqualAnyCase(modeText, "MODE R");
    case Modes::MasterOrExtension:
      return EqualAnyCase(modeText, "MODE M") || EqualAnyCase(modeText, "MODE X");
    case Modes::All:
      break;
  }
  return true;
}

}  // namespace quillmark
