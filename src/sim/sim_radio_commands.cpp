#include "sim/sim_radio_commands.h"

#include <algorithm>
#include <iterator>

#include "sim/sim_radio_reports.h"
#include "sim/sim_words.h"

namespace quillmark::sim {

namespace {

constexpr int lowestKilohertz = 902'200;
constexpr int highestKilohertz = 927'600;
constexpr std::size_t longestPassword = 4;

RadioAnswer Denied() { return Says("ACCESS DENIED"); }
RadioAnswer InvalidEntry() { return Says("INVALID ENTRY"); }
RadioAnswer InvalidCommand() { return Says("INVALID COMMAND"); }
RadioAnswer Programmed() { return Says("PROGRAMMED OK"); }

}  // namespace

// A word that is no setting.
struct SimRadioCommands::Word {
  enum class Takes { Nothing, Value };
  enum class Does { Show, Change };  // a change needs the login
  enum class Where { Anywhere, InSetup };

  std::string_view Typed;  // small letters
  RadioAnswer (SimRadioCommands::*Run)(Time at, std::string_view value);
  Takes Argument = Takes::Nothing;
  Does Effect = Does::Show;
  Where Known = Where::Anywhere;
  bool Secret = false;  // its value must not be shown
};

const SimRadioCommands::Word SimRadioCommands::words[] = {
    {.Typed = "ser", .Run = &SimRadioCommands::Serial},
    {.Typed = "srev", .Run = &SimRadioCommands::Release},
    {.Typed = "temp", .Run = &SimRadioCommands::Temperature},
    {.Typed = "alrm", .Run = &SimRadioCommands::AlarmCode},
    {.Typed = "alarm", .Run = &SimRadioCommands::AlarmCode},
    {.Typed = "stat", .Run = &SimRadioCommands::Status},
    {.Typed = "show sync", .Run = &SimRadioCommands::ShowSync},
    {.Typed = "show pwr", .Run = &SimRadioCommands::ShowPower},
    {.Typed = "options", .Run = &SimRadioCommands::Features},
    {.Typed = "rssi", .Run = &SimRadioCommands::SignalReports},
    {.Typed = "zone data", .Run = &SimRadioCommands::ZoneData},
    {.Typed = "zone clear", .Run = &SimRadioCommands::ZoneClear, .Effect = Word::Does::Change},
    {.Typed = "setup", .Run = &SimRadioCommands::EnterSetup, .Effect = Word::Does::Change},
    {.Typed = "quit", .Run = &SimRadioCommands::LeaveSetup},
    {.Typed = "key",
     .Run = &SimRadioCommands::KeyTransmitter,
     .Effect = Word::Does::Change,
     .Known = Word::Where::InSetup},
    {.Typed = "dkey", .Run = &SimRadioCommands::UnkeyTransmitter, .Known = Word::Where::InSetup},
    {.Typed = "rx",
     .Run = &SimRadioCommands::ReceiveFrequency,
     .Argument = Word::Takes::Value,
     .Known = Word::Where::InSetup},
    {.Typed = "tx",
     .Run = &SimRadioCommands::TransmitFrequency,
     .Argument = Word::Takes::Value,
     .Known = Word::Where::InSetup},
    {.Typed = "pass",
     .Run = &SimRadioCommands::Login,
     .Argument = Word::Takes::Value,
     .Secret = true},
    {.Typed = "k7m2",
     .Run = &SimRadioCommands::SetPassword,
     .Argument = Word::Takes::Value,
     .Effect = Word::Does::Change,
     .Secret = true},
    {.Typed = "code",
     .Run = &SimRadioCommands::EncryptionCode,
     .Argument = Word::Takes::Value,
     .Effect = Word::Does::Change,
     .Secret = true},
    {.Typed = "program", .Run = &SimRadioCommands::NewFirmware, .Effect = Word::Does::Change},
};

RadioAnswer SimRadioCommands::Execute(Time at, std::string_view line) {
  if (const auto answer = ExecutePending(Trimmed(line))) return *answer;
  session.Pending = SimSession::Waits::No;
  if (Trimmed(line).empty() || line.starts_with('#')) return PromptOnly();
  if (const auto answer = ExecuteSessionWord(line)) return *answer;
  for (const Word& word : words) {
    const auto value = ValueAfter(line, word.Typed);
    if (!value) continue;
    return Finish(word, at, *value);
  }
  for (const RadioSetting& row : SettingRows()) {
    const auto value = ValueAfter(line, row.Word);
    if (!value || settings.Row(row.Word) != &row) continue;
    const bool programs =
        !Trimmed(*value).empty() || (row.Value == Shape::Text && line.size() > row.Word.size());
    return ExecuteSetting(row, *value, programs);
  }
  return InvalidCommand();
}

std::optional<RadioAnswer> SimRadioCommands::ExecuteSessionWord(std::string_view line) {
  const std::string word = Lowered(Trimmed(line));
  if (word == "clos") {
    session.Open = false;
    return Says("CLOSED");
  }
  if (word == "deco" || word == "eeco") {
    session.Echo = word == "eeco";
    return PromptOnly();
  }
  if (word != "open") return std::nullopt;
  session.Open = true;
  return PromptOnly();
}

RadioAnswer SimRadioCommands::Finish(const Word& word, Time at, std::string_view value) {
  if (word.Known == Word::Where::InSetup && session.At != Level::Setup) return InvalidCommand();
  if (word.Argument == Word::Takes::Nothing && !Trimmed(value).empty()) return InvalidEntry();
  if (word.Effect == Word::Does::Change && !session.MayChange()) return Denied();
  return (this->*word.Run)(at, Trimmed(value));
}

RadioAnswer SimRadioCommands::ExecuteSetting(const RadioSetting& row, std::string_view value,
                                             bool programs) {
  if (!programs) return Says(settings.Read(row));
  if (!session.MayChange()) return Denied();
  return Says(settings.Program(row, value));
}

// An answer to a question, or the next page. Any other line drops what was pending and is an
// ordinary line.
std::optional<RadioAnswer> SimRadioCommands::ExecutePending(std::string_view line) {
  switch (session.Pending) {
    case SimSession::Waits::WhileReporting:
      session.Pending = SimSession::Waits::No;
      return PromptOnly();
    case SimSession::Waits::ForNextPage:
      if (!line.empty()) return std::nullopt;
      return NextPage();
    case SimSession::Waits::ForConfirmation:
      if (SameWord(line, "no")) {
        session.Pending = SimSession::Waits::No;
        return Says("FIRMWARE KEPT");
      }
      if (!SameWord(line, "yes")) return std::nullopt;
      return RadioAnswer{
          .Text = "ERASING", .Prompt = false, .Then = RadioAnswer::Next::EnterLoader};
    case SimSession::Waits::No:
      break;
  }
  return std::nullopt;
}

RadioAnswer SimRadioCommands::NextPage() {
  const auto pages = StatusPages(session, settings, options);
  const std::size_t page = session.NextPage++;
  const bool more = session.NextPage < pages.size();
  session.Pending = more ? SimSession::Waits::ForNextPage : SimSession::Waits::No;
  return Says(pages[page]);
}

RadioAnswer SimRadioCommands::Serial(Time, std::string_view) {
  return Says("SN " + options.SerialNumber);
}
RadioAnswer SimRadioCommands::Release(Time, std::string_view) {
  return Says(ReleaseText(settings.Traits().Revision));
}
RadioAnswer SimRadioCommands::Temperature(Time, std::string_view) { return Says("TEMP 31 C"); }
RadioAnswer SimRadioCommands::AlarmCode(Time, std::string_view) {
  return Says("00000000 Minor\r\nNo active alarms");
}
RadioAnswer SimRadioCommands::Status(Time, std::string_view) {
  session.NextPage = 0;
  return NextPage();
}
RadioAnswer SimRadioCommands::ShowSync(Time, std::string_view) { return Says(SyncText(settings)); }
RadioAnswer SimRadioCommands::ShowPower(Time, std::string_view) {
  return Says("POWER " + settings.Value("pwr"));
}
RadioAnswer SimRadioCommands::Features(Time, std::string_view) {
  return Says(FeatureText(settings));
}

RadioAnswer SimRadioCommands::SignalReports(Time, std::string_view) {
  // A master hears its remotes only now and then; it can report a level on the bench alone.
  if (settings.IsMaster() && session.At != Level::Setup) return Says("RSSI n/a");
  session.Pending = SimSession::Waits::WhileReporting;
  return {.Text = std::nullopt, .Prompt = false};
}

RadioAnswer SimRadioCommands::ZoneData(Time at, std::string_view) {
  zones.Pass(at, options.ZoneTraffic, settings.Value("skip"));
  return Says(zones.Text());
}
RadioAnswer SimRadioCommands::ZoneClear(Time at, std::string_view) {
  zones.Clear(at);
  return Programmed();
}

RadioAnswer SimRadioCommands::EnterSetup(Time, std::string_view) {
  session.At = Level::Setup;
  return PromptOnly();
}
RadioAnswer SimRadioCommands::LeaveSetup(Time, std::string_view) {
  session.At = Level::Command;
  session.Keyed = false;
  return PromptOnly();
}
RadioAnswer SimRadioCommands::KeyTransmitter(Time, std::string_view) {
  session.Keyed = true;
  return PromptOnly();
}
RadioAnswer SimRadioCommands::UnkeyTransmitter(Time, std::string_view) {
  session.Keyed = false;
  return PromptOnly();
}
RadioAnswer SimRadioCommands::ReceiveFrequency(Time, std::string_view value) {
  return Frequency(session.RxKilohertz, "RX", value);
}
RadioAnswer SimRadioCommands::TransmitFrequency(Time, std::string_view value) {
  return Frequency(session.TxKilohertz, "TX", value);
}

RadioAnswer SimRadioCommands::Frequency(int& kilohertz, std::string_view word,
                                        std::string_view value) {
  if (value.empty()) return Says(std::string(word) + " " + MegahertzText(kilohertz));
  if (!session.MayChange()) return Denied();
  const auto wanted = KilohertzOf(value);
  if (!wanted || *wanted < lowestKilohertz || *wanted > highestKilohertz) return InvalidEntry();
  kilohertz = *wanted;
  return Programmed();
}

RadioAnswer SimRadioCommands::Login(Time, std::string_view value) {
  if (SameWord(value, "none")) {
    session.LoggedIn = false;
    return Says("LOGGED OUT");
  }
  if (value.empty() || value != session.Password) return Says("PASSWORD INVALID");
  session.LoggedIn = true;
  return Says("PASSWORD OK");
}

RadioAnswer SimRadioCommands::SetPassword(Time, std::string_view value) {
  // "none" is taken like any other word, although "pass none" then logs out, not in.
  if (value.size() > longestPassword) return InvalidEntry();
  session.Password = value;
  session.LoggedIn = !value.empty();
  return Programmed();
}

RadioAnswer SimRadioCommands::EncryptionCode(Time, std::string_view value) {
  const auto code = WholeNumber(value);
  const bool valid = SameWord(value, "none") || (code && *code >= 1 && *code <= 255);
  return valid ? Programmed() : InvalidEntry();
}

RadioAnswer SimRadioCommands::NewFirmware(Time, std::string_view) {
  session.Pending = SimSession::Waits::ForConfirmation;
  return Says("ARE YOU SURE?");
}

std::string SimRadioCommands::Masked(std::string_view line) {
  if (Trimmed(line).empty()) return "";
  for (const Word& word : words) {
    const auto value = ValueAfter(line, word.Typed);
    if (!value) continue;
    const bool hide = word.Secret && !Trimmed(*value).empty();
    return hide ? std::string(word.Typed) + " ****" : std::string(line);
  }
  const auto known = [&](std::string_view word) { return ValueAfter(line, word).has_value(); };
  constexpr std::string_view others[] = {"open", "clos", "deco",  "eeco",
                                         "yes",  "no",   "erase", "exit"};
  const bool plain = std::any_of(std::begin(others), std::end(others), known) ||
                     std::any_of(SettingRows().begin(), SettingRows().end(),
                                 [&](const RadioSetting& row) { return known(row.Word); });
  return plain ? std::string(line) : "(unknown, " + std::to_string(line.size()) + " characters)";
}

}  // namespace quillmark::sim
