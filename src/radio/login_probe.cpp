#include "radio/login_probe.h"

#include <algorithm>

#include "text/text.h"

namespace quillmark {

namespace {

// A slow radio gets that long for the prompt behind its answer.
constexpr Duration slowAnswer = Seconds(1);

}  // namespace

bool MayBeSentBack(const std::string& value) {
  constexpr std::size_t longest = 30;
  return !value.empty() && value.size() <= longest && !IsRefusal(value) &&
         std::all_of(value.begin(), value.end(), [](char c) {
           const auto code = static_cast<unsigned char>(c);
           return code >= 32 && code != 127;
         });
}

LoginState ProbeLogin(Conversation& radio, const LoginProbe& probe, const std::string& value,
                      const std::function<void(LoginState)>& answered) {
  if (!MayBeSentBack(value) || FindAnyCase(value, probe.Opening) != 1) return LoginState::Unknown;
  const int began = radio.Epoch();
  const auto again = radio.Ask({.Command = probe.Word,
                                .Opening = probe.Opening,
                                .InValue = Conversation::Question::Bracket::Spoils});
  if (again != value || radio.Epoch() != began) return LoginState::Unknown;
  radio.SwitchEcho(false);
  if (radio.Epoch() != began || !radio.Open()) return LoginState::Unknown;
  radio.Prime();
  radio.Say(probe.Prefix + value);
  radio.AwaitText(probe.Wait, [] { return false; });
  radio.AwaitText(slowAnswer, [&radio] { return radio.PromptsDue() == 0; });
  if (radio.Epoch() != began || !radio.Open()) return LoginState::Unknown;
  const LoginState state =
      Contains(radio.Received(), "DENIED") ? LoginState::Denied : LoginState::LoggedIn;
  answered(state);
  if (radio.Epoch() != began || !radio.Open()) return LoginState::Unknown;
  // The line may have lost its end; the next command would become a part of the name.
  if (radio.PromptsDue() > 0) radio.Say("");
  radio.SwitchEcho(true);
  return radio.Epoch() == began && radio.Open() ? state : LoginState::Unknown;
}

LoginState ProbeLogin(Conversation& radio, const LoginProbe& probe,
                      const std::function<void(LoginState)>& answered) {
  const auto value = radio.Ask({.Command = probe.Word, .Opening = probe.Opening});
  return value ? ProbeLogin(radio, probe, *value, answered) : LoginState::Unknown;
}

}  // namespace quillmark
