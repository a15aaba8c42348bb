#include "radio/read_cycle.h"

#include <array>

#include "platform/utilities.h"
#include "radio/login_probe.h"
#include "radio/view_rules.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration readTimeOut = Seconds(4);
constexpr std::string_view notAvailable = "NOT AVAILABLE";

enum class Gate { Always, From200, Below200, From200Known, From300, From320, NotRemote };
enum class Then { Nothing, Revision, LoginProbe, ModeRules, RtuRule };

}  // namespace

struct ReadRow {
  const char* Word;
  SettingRow SettingsRows::*Row;
  const char* Opening = "";  // what the reply begins with; empty: any text
  bool ManyLines = false;    // in the reply
  Gate When = Gate::Always;
  const char* Refusal = "";  // a reply that holds it puts "NOT AVAILABLE" into the row
  Then Step = Then::Nothing;
  bool Pause = false;
};

namespace {

// clang-format off
constexpr std::array<ReadRow, 40> reads{{
    {.Word = "ser", .Row = &SettingsRows::SerialNumber, .Opening = "SN"},
    {.Word = "unit", .Row = &SettingsRows::UnitAddr, .Opening = "UNIT"},
    {.Word = "srev", .Row = &SettingsRows::SoftwareRev, .Opening = "77-", .ManyLines = true, .Step = Then::Revision},
    {.Word = "own", .Row = &SettingsRows::OwnerName, .Step = Then::LoginProbe, .Pause = true},
    {.Word = "owm", .Row = &SettingsRows::OwnerMessage},
    {.Word = "temp", .Row = &SettingsRows::Temperature},
    {.Word = "alrm", .Row = &SettingsRows::AlarmInfo, .ManyLines = true, .Pause = true},
    {.Word = "mode", .Row = &SettingsRows::Mode, .Opening = "MODE", .Step = Then::ModeRules},
    {.Word = "pwr", .Row = &SettingsRows::PowerLevel, .Opening = "PWR"},
    {.Word = "baud", .Row = &SettingsRows::BaudRate, .Opening = "BAUD"},
    {.Word = "port", .Row = &SettingsRows::Port, .Opening = "PORT", .Pause = true},
    {.Word = "device", .Row = &SettingsRows::DeviceType, .Opening = "DEVICE"},
    {.Word = "amask", .Row = &SettingsRows::AlarmMask, .Opening = "MASK"},
    {.Word = "asense", .Row = &SettingsRows::AlarmSense, .Opening = "ALARM", .Pause = true},
    {.Word = "cts", .Row = &SettingsRows::CTSdelay, .Opening = "CTS"},
    {.Word = "ctshold", .Row = &SettingsRows::CTSHOLDdelay, .Opening = "CTSHOLD"},
    {.Word = "rxtot", .Row = &SettingsRows::RxTimeOut, .Opening = "RXTOT", .Pause = true},
    {.Word = "rxd", .Row = &SettingsRows::RXD, .Opening = "RXD", .When = Gate::From300},
    {.Word = "sleep", .Row = &SettingsRows::SleepMode, .Opening = "SLEEP"},
    {.Word = "lpmhold", .Row = &SettingsRows::LPMHOLD, .Opening = "LPMHOLD", .When = Gate::From320,
     .Refusal = "SELECTED OPTION", .Pause = true},
    {.Word = "addr", .Row = &SettingsRows::NetworkAddress, .Opening = "ADDR"},
    {.Word = "csaddr", .Row = &SettingsRows::CSADDR, .Opening = "CSADDR", .When = Gate::From300, .Refusal = "n/a"},
    {.Word = "hoptime", .Row = &SettingsRows::HopTime, .Opening = "HOPTIME"},
    {.Word = "skip", .Row = &SettingsRows::SkippedZones, .Opening = "SKIP"},
    {.Word = "lpm", .Row = &SettingsRows::LPM, .Opening = "LPM", .When = Gate::From320,
     .Refusal = "SELECTED OPTION", .Pause = true},
    {.Word = "repeat", .Row = &SettingsRows::RepeatCount, .Opening = "REPEAT", .Refusal = "PROGRAMMABLE ONLY"},
    {.Word = "retry", .Row = &SettingsRows::RetryCount, .Opening = "RETRY"},
    {.Word = "fec", .Row = &SettingsRows::FEC, .Opening = "FEC"},
    {.Word = "buff", .Row = &SettingsRows::DataBuff, .Opening = "BUFF", .Pause = true},
    {.Word = "saf", .Row = &SettingsRows::StoreAndForward, .Opening = "SAF"},
    {.Word = "xaddr", .Row = &SettingsRows::XADDR, .Opening = "XADDR", .When = Gate::NotRemote},
    {.Word = "xmin", .Row = &SettingsRows::XMIN, .Opening = "XMIN", .When = Gate::Below200},
    {.Word = "xmax", .Row = &SettingsRows::XMAX, .Opening = "XMAX", .When = Gate::Below200},
    {.Word = "xpri", .Row = &SettingsRows::XPRI, .Opening = "XPRI", .When = Gate::From200Known},
    {.Word = "xrssi", .Row = &SettingsRows::XRSSI, .Opening = "XRSSI", .When = Gate::From200Known},
    {.Word = "show sync", .Row = &SettingsRows::ShowSync, .Pause = true},
    {.Word = "dtype", .Row = &SettingsRows::DTYPE, .Opening = "DTYPE", .When = Gate::From200},
    {.Word = "dlink", .Row = &SettingsRows::DLINK, .Opening = "DLINK", .When = Gate::From200},
    {.Word = "rtu", .Row = &SettingsRows::SoftRTU, .Opening = "RTU", .When = Gate::From200, .Step = Then::RtuRule},
    {.Word = "options", .Row = &SettingsRows::DiagOptions, .Pause = true},
}};
// clang-format on

// With an unknown revision all reads run but those of From200Known: nothing may stay unread that
// the radio might have.
bool IsOpen(Gate gate, const Revision& revision) {
  switch (gate) {
    case Gate::From200:
      return !revision.Below(200);
    case Gate::Below200:
      return !revision.AtLeast(200);
    case Gate::From200Known:
      return revision.AtLeast(200);
    case Gate::From300:
      return !revision.Below(300);
    case Gate::From320:
      return !revision.Below(320);
    case Gate::Always:
    case Gate::NotRemote:
      break;
  }
  return true;
}

}  // namespace

ReadCycle::ReadCycle(Platform& machine, Session& shared, frmOrvalent& window, Connection& link,
                     Conversation& conversation)
    : platform(machine), session(shared), main(window), connection(link), radio(conversation) {}

void ReadCycle::Run() {
  session.DropRead();
  const int began = radio.Epoch();
  if (!CheckRadio()) return;
  for (const ReadRow& read : reads) {
    ReadOne(read);
    // Somebody has connected anew meanwhile: that brings a read of its own.
    if (radio.Epoch() != began && radio.Open()) return;
  }
}

void ReadCycle::ReadOne(const ReadRow& read) {
  SettingRow& row = main.*read.Row;
  std::optional<std::string> value;
  if (read.When == Gate::NotRemote && EqualAnyCase(main.Mode.Text(), "MODE R")) {
    row.Text = std::string(notAvailable);
  } else if (IsOpen(read.When, session.SoftwareRevision)) {
    value = radio.Ask({.Command = read.Word,
                       .Limit = readTimeOut,
                       .Opening = read.Opening,
                       .ManyLines = read.ManyLines});
    if (read.Step == Then::Revision && value && !HasVersionForm(VersionIn(*value))) {
      value = radio.Ask({.Command = read.Word, .Opening = read.Opening, .ManyLines = true});
    }
    Show(read, value);
    if (read.Step == Then::RtuRule) row.AllowClick(!Contains(radio.Received(), "SELECTED OPTION"));
  }
  if (read.Step == Then::Revision) TakeRevision(value);
  if (read.Step == Then::LoginProbe && value) FindLoginState(*value);
  if (read.Step == Then::ModeRules) {
    main.ButtonZoneData.Enabled = true;
    ApplyModeRules(main, session.InSetupMode);
  }
  if (read.Pause) Pause80();
}

void ReadCycle::Show(const ReadRow& read, const std::optional<std::string>& value) {
  if (!value) return;
  const bool refused = *read.Refusal != '\0' && Contains(*value, read.Refusal);
  (main.*read.Row).Text = refused ? std::string(notAvailable) : *value;
}

bool ReadCycle::CheckRadio() {
  radio.Settle();
  radio.CommandExchange("", ">", readTimeOut);
  // Somebody has let the radio go meanwhile: waking it would open the port behind their back.
  if (!radio.Open()) return false;
  if (!Contains(radio.Received(), ">")) connection.WakeLink();
  // The wake asks a sleeping radio more often than it answers.
  radio.ForgetLate();
  const bool inLoader = radio.LastPrompt() == PromptKind::Loader;
  Pause80();
  return !inLoader;
}

// A reply without its prompt shows the revision too.
void ReadCycle::TakeRevision(const std::optional<std::string>& value) {
  constexpr std::string_view head = " srev\r\n";
  std::string_view reply = radio.Received();
  reply.remove_prefix(reply.starts_with(head) ? head.size() : reply.size());
  session.InstalledFirmwareVersion = VersionIn(value ? *value : reply);
  session.SoftwareRevision = RevisionOf(session.InstalledFirmwareVersion);
  ApplyRevisionRules(main, session.SoftwareRevision);
}

// Runs once for each connect. A name that can't be confirmed leaves it to the next cycle.
void ReadCycle::FindLoginState(const std::string& ownerName) {
  if (!main.LoginProbePending) return;
  const LoginProbe probe{.Word = "own", .Prefix = "own ", .Wait = Milliseconds(200)};
  const LoginState state = ProbeLogin(radio, probe, ownerName, [this](LoginState found) {
    main.txtTerm.Text = "";
    main.tbr_Login.Enabled = found == LoginState::Denied;
    main.tbr_Logout.Enabled = found != LoginState::Denied;
  });
  if (state == LoginState::Unknown) return;
  main.LoginProbePending = false;
  main.txtTerm.Text = "";
}

void ReadCycle::Pause80() {
  WaitMilliseconds(platform.Events, 80);
  platform.Events.Pump();
}

}  // namespace quillmark
