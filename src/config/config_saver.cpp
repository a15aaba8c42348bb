#include "config/config_saver.h"

#include <algorithm>
#include <utility>

#include "app/version.h"
#include "config/saved_settings.h"
#include "link/echo.h"
#include "prefs/utilities.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

// An ending that may not be the reply's own is believed when nothing has followed it for that long.
constexpr Duration doubtfulEnd = Milliseconds(1500);
constexpr Duration wakeInterval = Milliseconds(250);
constexpr Duration longestQuieting = Seconds(2);

// What a bare carriage return and the switch of the echo leave behind: line ends and a prompt.
bool IsBarePrompt(std::string_view reply) {
  constexpr std::string_view echoOff = "deco";
  if (const std::size_t echo = FindAnyCase(reply, echoOff)) {
    reply.remove_prefix(echo - 1 + echoOff.size());
  }
  constexpr std::size_t longestBare = 4;  // CR LF, prompt, and a stray line feed
  return reply.size() <= longestBare && std::all_of(reply.begin(), reply.end(), [](char c) {
           return c == '\r' || c == '\n' || c == '>';
         });
}

// A prompt that stands alone in its line, not a ">" within a value whose rest is under way.
bool EndsInPrompt(std::string_view reply) {
  return reply.ends_with("\n>") || reply.ends_with("SETUP>");
}

int SettingCount(bool master) {
  const auto rows = SavedSettings();
  return static_cast<int>(std::count_if(rows.begin(), rows.end(), [&](const SavedSetting& row) {
    return master || !row.MasterOnly;
  }));
}

// The firmware's part number, revision and date in one line.
std::string FirmwareText(std::string reply) {
  for (std::size_t at = reply.find("\r\n"); at != std::string::npos; at = reply.find("\r\n")) {
    reply.replace(at, 2, " ");
  }
  constexpr std::ptrdiff_t wordAndBlank = 5;
  const auto from = static_cast<std::ptrdiff_t>(FindAnyCase(reply, "srev")) + wordAndBlank;
  // Not the blank and the prompt at the end.
  const auto text = Mid(reply, from, static_cast<std::ptrdiff_t>(reply.size()) - from - 1);
  if (!text) throw RunFailed{"The radio's reply to srev can't be read."};
  return *text;
}

}  // namespace

ConfigSaver::ConfigSaver(Platform& machine, frmOrvalent& window, Connection& link,
                         DirectRun& itsRun)
    : platform(machine), main(window), connection(link), run(itsRun) {}

void ConfigSaver::WriteConfigToFile(std::filesystem::path path, bool report) {
  run.Begin();
  if (!ChooseFile(path)) {
    main.DirectPortMode = false;
    return;
  }
  try {
    Write(path, report);
    return;
  } catch (const FileError& error) {
    Fail(error.what());
  } catch (const SerialError&) {
    Fail("");
  } catch (const RunFailed& failure) {
    Fail(failure.Why);
  }
}

bool ConfigSaver::ChooseFile(std::filesystem::path& path) {
  const std::filesystem::path given = path;
  for (;;) {
    path = given.empty() ? platform.Dialogs
                               .SaveFile({"Radio Configuration Save",
                                          "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*"})
                               .value_or("")
                         : given;
    if (path.empty()) return false;
    if (!FileExists(path)) return true;
    const Answer answer = platform.Dialogs.Message(
        {"File Exists !!\r\n\r\nOverwrite ? ", "File I/O Error", Icon::None, Buttons::YesNoCancel});
    if (answer == Answer::Yes) return true;
    if (answer == Answer::Cancel) return false;
  }
}

void ConfigSaver::Write(const std::filesystem::path& path, bool report) {
  // A link that went while a dialog was up must not cost the old file its name.
  run.CheckLink();
  ReplacedFile file(path);
  if (report) {
    run.ShowStatus("Preparing Report");
    file.Line("");
    file.Line("");
  }
  std::string creator = "#Created by Kelvor Quillmark Configuration Software Version ";
  file.Line(creator.append(VersionText));
  file.Line("#On " + platform.Desktop.ShortDate());
  WriteHead(file, report);
  WriteSettings(file, report);
  file.Complete();
  main.Timer2.Enabled = true;
  SwitchEchoOn();
  main.DirectPortMode = false;
  ReportWritten = true;
}

void ConfigSaver::WriteHead(ReplacedFile& file, bool report) {
  platform.MSComm1.Output("\r\n");
  platform.MSComm1.Output("\r\n");
  run.Sleep(250);
  run.DropInput();
  run.Reply.clear();
  run.Send("ser");
  run.Sleep(150);
  run.Take();
  run.ShowTitle(report ? "PRINTING." : "SAVING.");
  WakeRadio();
  if (const std::size_t at = FindAnyCase(run.Reply, "SN")) {
    constexpr std::ptrdiff_t serialLength = 11;
    file.Line("#From Radio, serial number: " +
              Mid(run.Reply, static_cast<std::ptrdiff_t>(at), serialLength).value_or(""));
  }
  run.Dot();
  platform.Events.Pump();
  run.Reply.clear();
  run.Send("srev");
  run.Sleep(50);
  AwaitPrompt([this] { return Contains(run.Reply, "srev"); });
  run.Dot();
  if (Contains(run.Reply, "srev")) {
    file.Line("#With Firmware Version:  " + FirmwareText(run.Reply));
  }
  run.Reply.clear();
  file.Line("");
  file.Line("");
}

// A radio that does not answer is called with carriage returns. Their prompts would pass for the
// replies to what follows, so the line must be quiet before that.
void ConfigSaver::WakeRadio() {
  Duration nextCall = platform.Events.Now();
  bool called = false;
  AwaitPrompt([&] { return Contains(run.Reply, "SN"); },
              [&] {
                if (platform.Events.Now() < nextCall) return;
                platform.MSComm1.Output("\r\n");
                nextCall = platform.Events.Now() + wakeInterval;
                called = true;
              });
  const Duration deadline = platform.Events.Now() + longestQuieting;
  for (std::size_t before = 0; called && platform.Events.Now() < deadline;) {
    before = run.Reply.size();
    run.Sleep(static_cast<int>(wakeInterval / Milliseconds(1)));
    platform.Events.Pump();
    run.CheckLink();
    run.Take();
    called = run.Reply.size() != before;
  }
}

// A late prompt of an earlier line, or a ">" within a value, is not taken for the reply's end: what
// ends so is believed when nothing more has come for a while.
void ConfigSaver::AwaitPrompt(const std::function<bool()>& isReply,
                              const std::function<void()>& whileSilent) {
  std::size_t lastSize = 0;
  Duration lastChange = platform.Events.Now();
  run.Await([&] {
    if (run.Reply.size() != lastSize) {
      lastSize = run.Reply.size();
      lastChange = platform.Events.Now();
    }
    if (!run.Reply.ends_with('>')) {
      if (whileSilent) whileSilent();
      return false;
    }
    if (EndsInPrompt(run.Reply) && isReply()) return true;
    // The watchdog is for a radio that says nothing: it does not run down over the doubt.
    if (lastChange == platform.Events.Now()) {
      connection.StopPortTimeout();
      connection.StartPortTimeout();
    }
    return platform.Events.Now() - lastChange >= doubtfulEnd;
  });
}

void ConfigSaver::WriteSettings(ReplacedFile& file, bool report) {
  platform.MSComm1.Output("deco\r\n");
  main.EchoIsOff = true;
  modeLetter.clear();
  int done = 0;
  int all = SettingCount(true);
  for (const SavedSetting& row : SavedSettings()) {
    if (row.MasterOnly && !EqualAnyCase(modeLetter, "M")) {
      all = SettingCount(false);
      continue;
    }
    run.ShowProgress(done++, all);
    if (!report && row.Panel != nullptr) run.ShowStatus(row.Panel);
    WriteSetting(file, row);
  }
  run.ShowProgress(all, all);
}

void ConfigSaver::WriteSetting(ReplacedFile& file, const SavedSetting& row) {
  run.Send(row.Command);
  run.Sleep(50);
  AwaitPrompt([this] { return !IsBarePrompt(run.Reply); });
  if (row.Dot) run.Dot();
  // The cuts count on the short prompt.
  constexpr std::string_view setupPrompt = "SETUP>";
  if (run.Reply.ends_with(setupPrompt)) {
    run.Reply.replace(run.Reply.size() - setupPrompt.size(), setupPrompt.size(), ">");
  }
  if (const auto lines = CutSetting(row, run.Reply)) {
    file.Line(*lines);
    if (row.Way == SavedSetting::Cut::SixWide) modeLetter = Mid(*lines, 6, 1).value_or("");
  }
  run.Reply.clear();
}

void ConfigSaver::SwitchEchoOn() {
  SwitchEcho(platform.MSComm1, main, true);
  run.Sleep(250);
  run.DropInput();
}

void ConfigSaver::Fail(const std::string& why) {
  connection.StopPortTimeout();
  try {
    SwitchEchoOn();
  } catch (const SerialError&) {
    // Nobody is there whose echo could be off.
  }
  run.Sleep(100);
  main.DirectPortMode = false;
  main.PortTimedOut = false;
  run.ShowStatus("");
  if (!why.empty()) {
    platform.Desktop.Beep();
    main.txtTerm.Text =
        main.txtTerm.Text() + "\r\n*** The configuration was not saved. " + why + " ***\r\n";
  }
  run.ReadRadioAgain();
}

}  // namespace quillmark
