#include "radio/read_cycle.h"

#include <array>

#include "link/echo.h"
#include "prefs/utilities.h"
#include "radio/command_exchange.h"
#include "radio/reply.h"
#include "radio/view_rules.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration readTimeOut = Seconds(4);
constexpr std::string_view notAvailable = "NOT AVAILABLE";

enum class Gate { Always, From200, Below200, From200Known, From300, From320, NotRemote };
enum class Then { Nothing, EchoRepair, Revision, LoginProbe, ModeRules, RtuRule };

struct ReadRow {
  const char* Word;
  SettingRow SettingsRows::*Row;
  Gate When = Gate::Always;
  const char* Refusal = "";  // a reply that holds it puts "NOT AVAILABLE" into the row
  Then Step = Then::Nothing;
  bool Pause = false;
};

// clang-format off
constexpr std::array<ReadRow, 40> reads{{
    {"ser", &SettingsRows::SerialNumber, Gate::Always, "", Then::EchoRepair},
    {"unit", &SettingsRows::UnitAddr},
    {"srev", &SettingsRows::SoftwareRev, Gate::Always, "", Then::Revision},
    {"own", &SettingsRows::OwnerName, Gate::Always, "", Then::LoginProbe, true},
    {"owm", &SettingsRows::OwnerMessage},
    {"temp", &SettingsRows::Temperature},
    {"alrm", &SettingsRows::AlarmInfo, Gate::Always, "", Then::Nothing, true},
    {"mode", &SettingsRows::Mode, Gate::Always, "", Then::ModeRules},
    {"pwr", &SettingsRows::PowerLevel},
    {"baud", &SettingsRows::BaudRate},
    {"port", &SettingsRows::Port, Gate::Always, "", Then::Nothing, true},
    {"device", &SettingsRows::DeviceType},
    {"amask", &SettingsRows::AlarmMask},
    {"asense", &SettingsRows::AlarmSense, Gate::Always, "", Then::Nothing, true},
    {"cts", &SettingsRows::CTSdelay},
    {"ctshold", &SettingsRows::CTSHOLDdelay},
    {"rxtot", &SettingsRows::RxTimeOut, Gate::Always, "", Then::Nothing, true},
    {"rxd", &SettingsRows::RXD, Gate::From300},
    {"sleep", &SettingsRows::SleepMode},
    {"lpmhold", &SettingsRows::LPMHOLD, Gate::From320, "SELECTED OPTION", Then::Nothing, true},
    {"addr", &SettingsRows::NetworkAddress},
    {"csaddr", &SettingsRows::CSADDR, Gate::From300, "n/a"},
    {"hoptime", &SettingsRows::HopTime},
    {"skip", &SettingsRows::SkippedZones},
    {"lpm", &SettingsRows::LPM, Gate::From320, "SELECTED OPTION", Then::Nothing, true},
    {"repeat", &SettingsRows::RepeatCount, Gate::Always, "PROGRAMMABLE ONLY"},
    {"retry", &SettingsRows::RetryCount},
    {"fec", &SettingsRows::FEC},
    {"buff", &SettingsRows::DataBuff, Gate::Always, "", Then::Nothing, true},
    {"saf", &SettingsRows::StoreAndForward},
    {"xaddr", &SettingsRows::XADDR, Gate::NotRemote},
    {"xmin", &SettingsRows::XMIN, Gate::Below200},
    {"xmax", &SettingsRows::XMAX, Gate::Below200},
    {"xpri", &SettingsRows::XPRI, Gate::From200Known},
    {"xrssi", &SettingsRows::XRSSI, Gate::From200Known},
    {"show sync", &SettingsRows::ShowSync, Gate::Always, "", Then::Nothing, true},
    {"dtype", &SettingsRows::DTYPE, Gate::From200},
    {"dlink", &SettingsRows::DLINK, Gate::From200},
    {"rtu", &SettingsRows::SoftRTU, Gate::From200, "", Then::RtuRule},
    {"options", &SettingsRows::DiagOptions, Gate::Always, "", Then::Nothing, true},
}};
// clang-format on

// With an unknown revision all reads run but those of From200Known: nothing may stay unread that
// the radio might have.
bool Open(Gate gate, const Revision& revision) {
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

ReadCycle::ReadCycle(Platform& machine, Session& shared, frmOrvalent& window, Connection& link)
    : platform(machine), session(shared), main(window), connection(link) {}

void ReadCycle::Run() {
  session.RefreshRequested = false;
  if (CheckRadio()) ReadAll();
}

void ReadCycle::ReadAll() {
  for (const ReadRow& read : reads) {
    SettingRow& row = main.*read.Row;
    if (read.When == Gate::NotRemote && EqualAnyCase(main.Mode.Text(), "MODE R")) {
      row.Text = std::string(notAvailable);
    } else if (Open(read.When, session.SoftwareRevision)) {
      Read(read.Word, row, read.Refusal);
      if (read.Step == Then::EchoRepair && !Answered(read.Word) &&
          Contains(session.RxBuffer, ">")) {
        RepairEcho();
        Read(read.Word, row, read.Refusal);
      }
      if (read.Step == Then::RtuRule)
        row.AllowClick(!Contains(session.RxBuffer, "SELECTED OPTION"));
    }
    if (read.Step == Then::Revision) TakeRevision();
    if (read.Step == Then::LoginProbe) ProbeLogin();
    if (read.Step == Then::ModeRules) {
      main.ButtonZoneData.Enabled = true;
      ApplyModeRules(main, session.InSetupMode);
    }
    if (read.Pause) Pause80();
  }
}

bool ReadCycle::CheckRadio() {
  promptOutstanding = false;
  ownerNameIsWhole = false;
  CommandExchange(session, platform.MSComm1, platform.Events, "", ">", readTimeOut);
  // Somebody has let the radio go meanwhile: waking it would open the port behind their back.
  if (!platform.MSComm1.PortOpen()) return false;
  if (!Contains(session.RxBuffer, ">")) connection.WakeLink();
  session.InSetupMode = Contains(session.RxBuffer, "SETUP");
  const bool inLoader = Contains(session.RxBuffer, "LOADER>");
  Pause80();
  return !inLoader;
}

bool ReadCycle::Answered(std::string_view word) const {
  return HasReply(session.RxBuffer, word, session.InSetupMode);
}

bool ReadCycle::Read(std::string_view word, SettingRow& row, std::string_view refusal) {
  CommandExchange(session, platform.MSComm1, platform.Events, std::string(word), readTimeOut,
                  [&] { return Holds(session.RxBuffer, ">") && Answered(word); });
  const bool answered = Answered(word);
  if (ReplyIsDoubtful(word, answered) || !answered) return false;
  if (!refusal.empty() && Contains(session.RxBuffer, refusal)) {
    row.Text = std::string(notAvailable);
    return true;
  }
  if (auto value = CutReply(session.RxBuffer, word, session.InSetupMode)) {
    row.Text = std::move(*value);
    if (&row == &main.OwnerName) {
      ownerNameIsWhole = ReplyIsWhole(session.RxBuffer, word, session.InSetupMode);
    }
  }
  return true;
}

// After a command that drew no prompt, the next prompt may end its late reply; shown, it would
// stand in the wrong row. A second prompt that follows gives it away.
bool ReadCycle::ReplyIsDoubtful(std::string_view word, bool answered) {
  if (!answered) {
    promptOutstanding = !Contains(session.RxBuffer, Prompt(session.InSetupMode));
    return false;
  }
  if (!promptOutstanding) return false;
  promptOutstanding = false;
  constexpr Duration grace = Milliseconds(500);
  return WaitUntil(platform.Events, grace,
                   [&] { return CountPrompts(session.RxBuffer, word, session.InSetupMode) > 1; });
}

// A reply without an echo: somebody left the radio's echo off.
void ReadCycle::RepairEcho() {
  CommandExchange(session, platform.MSComm1, platform.Events, "eeco", ">", readTimeOut);
  main.EchoIsOff = false;
}

// The revision stands behind the echo, a part number of ten characters and their line ends.
void ReadCycle::TakeRevision() {
  constexpr std::ptrdiff_t position = 20;
  const std::string version = Mid(session.RxBuffer, position, 5).value_or("");
  const auto character = [&version](std::size_t at) {
    return at < version.size() ? version.substr(at, 1) : std::string();
  };
  session.InstalledFirmwareVersion = version;
  session.SoftwareRevision.Text = character(0) + character(2);
  if (!version.empty()) session.SoftwareRevision.Text += version.back();
  ApplyRevisionRules(main, session.SoftwareRevision);
}

// Programs the owner's name with what it holds already: a radio that wants a login refuses that.
// Runs once for each connect, with the echo off, so that it does not show in the terminal. A name
// that this cycle has not read to its end would be programmed wrong: the probe then waits for the
// next cycle.
void ReadCycle::ProbeLogin() {
  if (!main.LoginProbePending || !ownerNameIsWhole) return;
  main.LoginProbePending = false;
  SwitchEcho(platform.MSComm1, main, false);
  session.RxBuffer = " ";
  platform.MSComm1.Output("own " + main.OwnerName.Text() + "\r");
  WaitUntil(platform.Events, Milliseconds(200), [] { return false; });
  main.txtTerm.Text = "";
  const bool denied = Contains(session.RxBuffer, "DENIED");
  main.tbr_Login.Enabled = denied;
  main.tbr_Logout.Enabled = !denied;
  SwitchEcho(platform.MSComm1, main, true);
  AwaitProbeReplies();
}

// A slow radio still has its three prompts to give; they must not mix with the replies that follow.
void ReadCycle::AwaitProbeReplies() {
  constexpr int commands = 3;
  promptOutstanding = !WaitUntil(platform.Events, readTimeOut, [this] {
    return CountPrompts(session.RxBuffer, "", session.InSetupMode) >= commands;
  });
}

void ReadCycle::Pause80() {
  WaitMilliseconds(platform.Events, 80);
  platform.Events.Pump();
}

}  // namespace quillmark
