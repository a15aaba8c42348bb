#include "prefs/stored_preferences.h"

#include <cstdint>
#include <iterator>
#include <string>
#include <utility>

#include "prefs/colours.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr bool defaultBold = true;

// In the order of Theme.
constexpr const char* themeNames[] = {"Light", "Dark", "Desktop"};
static_assert(static_cast<std::size_t>(Theme::AsDesktop) + 1 == std::size(themeNames));

int PortNumber(const PreferenceStore& store) {
  const auto number = NumericValue(store.Read("Properties", "CommPort", "1"));
  if (!number || *number < 1 || *number > 16) return 1;
  return static_cast<int>(RoundHalfEven(*number));
}

}  // namespace

int LoadStoredPreferences(const PreferenceStore& store, Session& session, TextBox& terminal) {
  const auto read = [&store](const char* key, const std::string& fallback) {
    return store.Read("Preferences", key, fallback);
  };
  const StoredPreferences defaults;
  const auto flag = [&read](const char* key, bool fallback) {
    return BooleanValue(read(key, BooleanText(fallback)));
  };
  const auto colour = [&read](const char* key, std::uint32_t fallback) {
    return ColourValue(read(key, std::to_string(fallback)));
  };
  const int port = PortNumber(store);
  const auto passEnabled = flag("PassEnabled", defaults.PassEnabled);
  const auto bold = flag("BoldText", defaultBold);
  const auto textColour = colour("TextColor", DefaultTextColour);
  const auto backColour = colour("BackColor", DefaultBackColour);
  const auto connectOnLaunch = flag("ConnectOnLaunch", defaults.ConnectOnLaunch);
  const auto keepAlive = flag("KeepAlive", defaults.KeepAlive);
  const auto logoutOnQuit = flag("LogoutOnQuit", defaults.LogoutOnQuit);

  // Which one holds without a stored value is the application's to say.
  const bool historyByDefault = session.History;
  const auto history = flag("History", historyByDefault);

  const bool sound = passEnabled && bold && textColour && backColour && connectOnLaunch &&
                     keepAlive && logoutOnQuit && history;
  session.PassEnabled = sound ? *passEnabled : defaults.PassEnabled;
  terminal.Bold = sound ? *bold : defaultBold;
  terminal.ForeColor = sound ? *textColour : DefaultTextColour;
  terminal.BackColor = sound ? *backColour : DefaultBackColour;
  session.ConnectOnLaunch = sound ? *connectOnLaunch : defaults.ConnectOnLaunch;
  session.KeepAlive = sound ? *keepAlive : defaults.KeepAlive;
  session.LogoutOnQuit = sound ? *logoutOnQuit : defaults.LogoutOnQuit;
  // No style or flag of old goes with it.
  session.PlanFirst = flag("PlanFirst", session.PlanFirst).value_or(true);
  session.History = sound ? *history : historyByDefault;
  return port;
}

void StorePreferences(PreferenceStore& store, const Session& session, const TextBox& terminal) {
  const std::pair<const char*, std::string> values[] = {
      {"ConnectOnLaunch", BooleanText(session.ConnectOnLaunch)},
      {"KeepAlive", BooleanText(session.KeepAlive)},
      {"LogoutOnQuit", BooleanText(session.LogoutOnQuit)},
      {"History", BooleanText(session.History)},
      {"PlanFirst", BooleanText(session.PlanFirst)},
      {"BoldText", BooleanText(terminal.Bold())},
      {"TextColor", std::to_string(terminal.ForeColor())},
      {"BackColor", std::to_string(terminal.BackColor())},
  };
  for (const auto& [key, value] : values) store.Write("Preferences", key, value);
}

Theme StoredTheme(const PreferenceStore& store) {
  const std::string stored = store.Read("Preferences", "Theme", "Desktop");
  for (std::size_t i = 0; i < std::size(themeNames); ++i) {
    if (EqualAnyCase(stored, themeNames[i])) return static_cast<Theme>(i);
  }
  return Theme::AsDesktop;
}

void StoreTheme(PreferenceStore& store, Theme theme) {
  store.Write("Preferences", "Theme", themeNames[static_cast<std::size_t>(theme)]);
}

}  // namespace quillmark
