#include "firmware/firmware_upgrade.h"

#include "firmware/firmware_version.h"
#include "firmware/loader_entry.h"
#include "link/serial_failure.h"
#include "platform/utilities.h"
#include "session/chosen_files.h"
#include "text/at_end.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr const char* sessionSettings = "19200,N,8,1";

}  // namespace

FirmwareUpgrade::FirmwareUpgrade(Platform& machine, Session& shared, frmOrvalent& window,
                                 Connection& link, Conversation& conversation)
    : platform(machine), session(shared), main(window), connection(link), radio(conversation) {}

void FirmwareUpgrade::Wire() {
  // Not during a read: its replies would be taken for the loader's. Not during a connect: the
  // connect at the end of the upgrade would be refused.
  const auto wire = [this](Clickable& entry) {
    entry.OnClick = [this, &entry] {
      if (MayStart && !MayStart()) return;
      radio.Turns.WhenFree(entry, [this] { mnuSendText_Click(); });
    };
  };
  wire(main.mnuSendText);
  wire(main.tbr_TransmitTextFile);
}

void FirmwareUpgrade::Load(const std::filesystem::path& path) {
  if (MayStart && !MayStart()) return;
  radio.Turns.WhenFree(main.mnuSendText, [this, path] { Run(path); });
}

void FirmwareUpgrade::Run(const std::filesystem::path& given) {
  if (running || !main.mnuSendText.Enabled()) return;
  if (MayStart && !MayStart()) return;
  bool reconnect = false;
  {
    const auto underWay = Raised(running);
    EnableEntries(false);
    const AtEnd again([this] {
      main.ShowCommStatus = true;
      // Those of a link that was disconnected stay off.
      if (!main.NotConnected) EnableEntries(true);
    });
    // From the first question on: what was checked must still be true when the file is sent.
    HeldControls controls(main);
    const auto chosen = ChooseFirmware(given);
    // A read that ran while the questions were up has switched some on.
    controls.HoldAgain();
    if (chosen) reconnect = Load(*chosen, controls);
  }
  if (!reconnect) return;
  connection.mnuOpen_Click();
  // Behind what the connect has shown, where it can be read when the box has gone.
  main.txtTerm.Text = main.txtTerm.Text() + "\r\n" + outcome + "\r\n";
}

void FirmwareUpgrade::EnableEntries(bool enabled) {
  main.mnuSendText.Enabled = enabled;
  main.tbr_TransmitTextFile.Enabled = enabled;
}

std::optional<FirmwareUpgrade::Chosen> FirmwareUpgrade::ChooseFirmware(
    const std::filesystem::path& given) {
  const auto path = given.empty() ? ChooseFile() : given;
  if (!path) return std::nullopt;
  FirmwareFile file;
  if (const auto trouble = file.Open(*path)) {
    platform.Dialogs.Message({*trouble, ProgramTitle, Icon::Exclamation});
    return std::nullopt;
  }
  Chosen chosen{*path, "", ""};
  if (!PassesQuestions(file, chosen)) return std::nullopt;
  return chosen;
}

std::optional<std::filesystem::path> FirmwareUpgrade::ChooseFile() {
  for (;;) {
    auto path = ChooseToOpen(
        platform, FileKind::Firmware,
        {"Firmware Upgrade File Selection", "S28 Files (*.S28)|*.s28|All Files (*.*)|*.*"});
    if (!path || path->empty()) return std::nullopt;
    if (FileExists(*path)) return path;
    platform.Dialogs.Message({PathText(*path) + " not found!", ProgramTitle, Icon::Exclamation});
  }
}

bool FirmwareUpgrade::PassesQuestions(FirmwareFile& file, Chosen& chosen) {
  const FirmwareHeader header = ReadFirmwareHeader(file.Read(FirmwareHeaderLength));
  const std::string foreign = "This Does not appear to be a valid firmware file.";
  if (!header.IsHeaderRecord && !AskToContinue(foreign)) return false;
  if (!header.IsForThisRadio && !AskToContinue(foreign)) return false;
  chosen.Version = header.Version;
  for (const MessageBox& box : VersionQuestions(session.InstalledFirmwareVersion, header.Version)) {
    if (platform.Dialogs.Message(box) != Answer::Yes) return false;
  }
  // A user who goes on with a file of another kind has been warned already.
  const bool recognised = header.IsHeaderRecord && header.IsForThisRadio;
  return !recognised || AskAboutFaults(file, chosen);
}

bool FirmwareUpgrade::AskAboutFaults(FirmwareFile& file, Chosen& chosen) {
  const FirmwareFindings found = LookThrough(file, platform.Events);
  if (found.OutOfOrderLine > 0) {
    chosen.Note = "The data records of the file are out of order: the address in line " +
                  std::to_string(found.OutOfOrderLine) +
                  " lies before the end of the data above it.";
  }
  if (!found.Fault) return true;
  return AskToContinue("This firmware file is faulty in line " + std::to_string(found.Fault->Line) +
                       ": " + found.Fault->What + ".");
}

bool FirmwareUpgrade::AskToContinue(const std::string& doubt) {
  return platform.Dialogs.Message({.Text = "Error: " + doubt + " Continue working with it?",
                                   .Title = "Error",
                                   .Symbol = Icon::Critical,
                                   .Choice = Buttons::YesNo,
                                   .Irreversible = true}) == Answer::Yes;
}

bool FirmwareUpgrade::Load(const Chosen& chosen, HeldControls& controls) {
  const LineTurns::Turn turn(radio.Turns);
  const auto underWay = Raised(loading);
  try {
    if (BeforeOverwrite && !AtLoaderPrompt(radio)) BeforeOverwrite("firmware " + chosen.Version);
    controls.HoldAgain();
    LoaderEntry entry(platform, session, main, connection, radio);
    if (!AtLoaderPrompt(radio) && !entry.Enter(chosen.Version, chosen.Note)) return false;
    if (!AtLoaderPrompt(radio)) return false;
    LoaderTalk loader(platform, session, radio);
    FirmwareTransfer transfer(platform, session, main, loader);
    const std::string missing = transfer.Run(chosen.Path);
    Judge(loader, transfer, missing, chosen.Note);
    EndSession();
    return true;
  } catch (const SerialError& error) {
    GiveUp(error);
    return false;
  }
}

void FirmwareUpgrade::Judge(LoaderTalk& loader, const FirmwareTransfer& transfer,
                            const std::string& missing, const std::string& note) {
  WaitMilliseconds(platform.Events, 1000);
  platform.Events.Pump();
  platform.Events.Sleep(Milliseconds(500));
  const bool whole = missing.empty();
  if (whole) loader.AwaitVerdict();
  const bool programmed = loader.SaysProgrammed();
  const std::string text =
      programmed ? "Radio programming was successful." : "Radio programming FAILED.";
  const std::string details = (whole ? transfer.Sent() : missing) + " " + loader.Answer();
  outcome = text + " " + details;
  if (programmed) loader.Exit();
  platform.Dialogs.Message(
      {.Text = text,
       .Title = programmed ? "Programmed OK" : "Radio Error",
       .Symbol = Icon::Exclamation,
       .Details = programmed || !whole || note.empty() ? details : details + "\r\r" + note});
}

void FirmwareUpgrade::EndSession() {
  EnableEntries(true);
  session.StopTransfer();
  RestoreSettings(platform.MSComm1, sessionSettings);
  main.pnl_Settings.Text = "Settings: " + platform.MSComm1.Settings();
  connection.DisconnectRadio();
  main.ShowCommStatus = true;
  platform.Events.Sleep(Milliseconds(500));
}

// The line must not stay at the loader's rate: the next connect would get no answer.
void FirmwareUpgrade::GiveUp(const SerialError& error) {
  session.StopTransfer();
  main.ShowCommStatus = true;
  RestoreSettings(platform.MSComm1, sessionSettings);
  main.pnl_Settings.Text =
      "Settings: " + (platform.MSComm1.PortOpen() ? platform.MSComm1.Settings() : "");
  ShowLinkError(platform.Dialogs, error);
}

}  // namespace quillmark
