#include "prefs/stored_preferences.h"

#include <cstdint>

#include "text/numbers.h"

namespace quillmark {

namespace {

constexpr std::uint32_t defaultTextColour = 0x990000;
constexpr std::uint32_t defaultBackColour = 0xFFFFFF;

int PortNumber(const PreferenceStore& store) {
  const auto number = NumericValue(store.Read("Properties", "CommPort", "1"));
  if (!number || *number < 1 || *number > 16) return 1;
  return static_cast<int>(RoundHalfEven(*number));
}

}  // namespace

int LoadStoredPreferences(const PreferenceStore& store, Session& session, TextBox& terminal) {
  const auto read = [&store](const char* key, const char* fallback) {
    return store.Read("Preferences", key, fallback);
  };
  const int port = PortNumber(store);
  const auto passEnabled = BooleanValue(read("PassEnabled", "false"));
  const auto bold = BooleanValue(read("BoldText", "True"));
  const auto textColour = ColourValue(read("TextColor", "&H990000"));
  const auto backColour = ColourValue(read("BackColor", "&HFFFFFF"));
  const auto connectOnLaunch = BooleanValue(read("ConnectOnLaunch", "False"));
  const auto keepAlive = BooleanValue(read("KeepAlive", "True"));
  const auto logoutOnQuit = BooleanValue(read("LogoutOnQuit", "True"));

  const bool sound = passEnabled && bold && textColour && backColour && connectOnLaunch &&
                     keepAlive && logoutOnQuit;
  session.PassEnabled = sound && *passEnabled;
  terminal.Bold = sound ? *bold : true;
  terminal.ForeColor = sound ? *textColour : defaultTextColour;
  terminal.BackColor = sound ? *backColour : defaultBackColour;
  session.ConnectOnLaunch = sound && *connectOnLaunch;
  session.KeepAlive = sound ? *keepAlive : true;
  session.LogoutOnQuit = sound ? *logoutOnQuit : true;
  return port;
}

}  // namespace quillmark
