#include "config/config_saver.h"

#include <algorithm>
#include <utility>

#include "app/version.h"
#include "config/save_outcome.h"
#include "config/saved_settings.h"
#include "config/suggested_name.h"
#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration wakeInterval = Milliseconds(250);
constexpr Duration longestQuieting = Seconds(2);
// A radio whose echo has come is left alone for that long.
constexpr Duration longestEcho = Seconds(1);
constexpr Duration firstLook = Milliseconds(50);

}  // namespace

ConfigSaver::ConfigSaver(Platform& machine, frmOrvalent& window, Connection& link,
                         Conversation& conversation, DirectRun& itsRun)
    : platform(machine), main(window), connection(link), radio(conversation), run(itsRun) {}

void ConfigSaver::WriteConfigToFile(std::filesystem::path path, bool report) {
  run.Begin();
  Outcome.clear();
  WrittenTo.clear();
  if (!ChooseFile(path)) {
    main.ReleasePort();
    return;
  }
  try {
    Write(path, report);
    return;
  } catch (const FileError& error) {
    Fail("");
    platform.Dialogs.Message(
        {std::string("The configuration was not saved.\r\n\r\n") + error.what(), "File Error",
         Icon::Exclamation});
  } catch (const SerialError&) {
    Fail("");
  } catch (const RunFailed& failure) {
    Fail(failure.Why);
  }
}

bool ConfigSaver::ChooseFile(std::filesystem::path& path) {
  const std::filesystem::path given = path;
  const SettingRow& serial = main.At(SettingId::SerialNumber);
  for (;;) {
    path = given.empty() ? ChooseToSave(platform, FileKind::Configuration,
                                        {.Title = "Radio Configuration Save",
                                         .Filter = "TEXT Files (*.txt)|*.txt|All Files (*.*)|*.*",
                                         .Name = SuggestedName(serial.Stale() ? "" : serial.Text(),
                                                               platform.Events.LocalSeconds())})
                               .value_or("")
                         : given;
    if (path.empty()) return false;
    if (!FileExists(path)) return true;
    const Answer answer = platform.Dialogs.Message({.Text = "File Exists !!\r\n\r\nOverwrite ? ",
                                                    .Title = "File I/O Error",
                                                    .Choice = Buttons::YesNoCancel,
                                                    .Irreversible = true});
    if (answer == Answer::Yes) return true;
    if (answer == Answer::Cancel) return false;
  }
}

void ConfigSaver::Write(const std::filesystem::path& path, bool report) {
  // A link that went while a dialog was up must not cost the old file its name.
  run.CheckLink();
  ReplacedFile file(path, platform.Files.Data());
  written = expected = 0;
  try {
    WriteLines(file, report);
  } catch (const FileError&) {
    throw;
  } catch (...) {
    Outcome = InterruptedSentence(written, expected, path, file.EndEarly());
    throw;
  }
  Outcome = SavedSentence(written, path);
  WrittenTo = path;
  main.Timer2.Enabled = true;
  SwitchEchoOn();
  main.ReleasePort();
  ReportWritten = true;
}

void ConfigSaver::WriteLines(ReplacedFile& file, bool report) {
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
}

void ConfigSaver::WriteHead(ReplacedFile& file, bool report) {
  if (const auto serial = ReadSerialNumber(report)) {
    if (const std::size_t at = FindAnyCase(*serial, "SN")) {
      constexpr std::ptrdiff_t serialLength = 11;
      file.Line("#From Radio, serial number: " +
                Mid(*serial, static_cast<std::ptrdiff_t>(at), serialLength).value_or(""));
    }
  }
  run.Dot();
  platform.Events.Pump();
  const auto version =
      run.Ask({.Command = "srev", .Opening = "77-", .ManyLines = true, .FirstLook = firstLook});
  run.Dot();
  if (!version || IsRefusal(*version)) {
    throw RunFailed{"The radio's reply to srev can't be read."};
  }
  revision = RevisionOf(VersionIn(*version));
  file.Line("#With Firmware Version:  " + SavedFirmware(*version));
  file.Line("");
  file.Line("");
}

std::optional<std::string> ConfigSaver::ReadSerialNumber(bool report) {
  const Conversation::Question question{.Command = "ser", .Opening = "SN"};
  radio.SayBytes("\r\n");
  radio.SayBytes("\r\n");
  run.Sleep(250);
  run.DropInput();
  radio.Settle();
  radio.Prime();
  radio.Say(question.Command);
  run.Sleep(150);
  run.ShowTitle(report ? "PRINTING." : "SAVING.");
  const bool called = CallRadio();
  const Reply reply = FindReply(radio.Received(), {.Command = question.Command});
  if (!called && reply.Came == Reply::State::Whole && reply.Text.starts_with(question.Opening)) {
    return ValueOf(reply);
  }
  return run.Ask(question);
}

// A radio that does not answer is called with carriage returns. Their prompts would pass for the
// replies to what follows, so the line must be quiet before that.
bool ConfigSaver::CallRadio() {
  Duration nextCall = platform.Events.Now();
  bool called = false;
  run.Await([&] {
    if (radio.Received().ends_with('>')) return true;
    // It is at work: its echo has come.
    if (FindAnyCase(radio.Received(), "ser") != 0 && radio.QuietFor() < longestEcho) return false;
    if (platform.Events.Now() < nextCall) return false;
    radio.SayBytes("\r\n");
    nextCall = platform.Events.Now() + wakeInterval;
    called = true;
    return false;
  });
  if (called) radio.AwaitQuiet(wakeInterval, longestQuieting);
  run.CheckLink();
  return called;
}

void ConfigSaver::WriteSettings(ReplacedFile& file, bool report) {
  radio.SwitchEcho(false, "\n");
  modeLetter.clear();
  const auto rows = SavedOrder(main.Settings);
  const auto atMaster = [](const Setting* row) { return row->Saved->MasterOnly; };
  const auto others = rows.size() - static_cast<std::size_t>(std::ranges::count_if(rows, atMaster));
  int done = 0;
  auto all = static_cast<int>(rows.size());
  for (auto next = rows.begin(); next != rows.end();) {
    const Setting& row = **next++;
    if (row.Saved->MasterOnly && !EqualAnyCase(modeLetter, "M")) {
      all = static_cast<int>(others);
      continue;
    }
    run.ShowProgress(done++, all);
    if (!report && row.Saved->Panel) run.ShowStatus(Upper(row.Word));
    WriteSetting(file, row);
    if (modeLetter.empty()) continue;
    const auto toCome = std::count_if(next, rows.end(), [this](const Setting* each) {
      return GivesLine(*each, revision, "MODE " + modeLetter);
    });
    expected = written + static_cast<std::size_t>(toCome);
  }
  run.ShowProgress(all, all);
}

void ConfigSaver::WriteSetting(ReplacedFile& file, const Setting& row) {
  const auto text = ReadSetting(row);
  if (row.Saved->Dot) run.Dot();
  if (const auto lines = CutSetting(row, AsReply(text.value_or("")))) {
    file.Line(*lines);
    ++written;
    if (row.Id == SettingId::Mode) modeLetter = Mid(*lines, 6, 1).value_or("");
  }
}

// A refusal is no value. Only a revision that lacks the setting may refuse it.
std::optional<std::string> ConfigSaver::ReadSetting(const Setting& row) {
  const bool lacking = revision.Known() && !row.Revisions.HoldsIfUnknown(revision);
  const std::string command = SavedCommand(row);
  const std::string word = SavedWord(row);
  auto text = run.Ask({.Command = command,
                       .Opening = word,
                       .FirstLook = firstLook,
                       .Echo = false,
                       .TakesRefusal = lacking,
                       .InValue = Conversation::Question::Bracket::Stays});
  // A line end would make it two lines of the file, and the second one a command.
  if (text && IsOneLine(*text)) return text;
  // Only a name or a message may be empty.
  if (word.empty() && radio.CameLast() == Reply::State::Bare) return std::nullopt;
  const bool mayLack = row.Revisions.Gated() && !revision.Known();
  if (mayLack && IsRefusal(radio.Received())) return std::nullopt;
  throw RunFailed{"The radio's reply to " + command + " can't be read."};
}

void ConfigSaver::SwitchEchoOn() {
  radio.SwitchEcho(true);
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
  main.ReleasePort();
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
