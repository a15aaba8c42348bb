#include "config/presets/presets.h"

#include <memory>
#include <system_error>

#include "config/config_lines.h"
#include "config/presets/frmViewer.h"
#include "platform/utilities.h"
#include "text/path_text.h"
#include "text/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestCaption = 12;
constexpr double emptyFontSize = 8;
constexpr double filledFontSize = 9;
constexpr std::size_t mostLinesShown = 10'000;

constexpr const char* captionPrompt =
    "Enter a short name for the preset.\r\n\r\nThis will be displayed as the preset\r\nbutton "
    "caption.\r\n\r\n(Limit 12 Chars.)";
constexpr const char* descriptionPrompt =
    "Enter a meaningful name for the preset.\r\n\r\nThis will be displayed when the mouse "
    "hovers\r\nover the preset buttons.";
constexpr const char* fileTrouble = "File I/O Error";

}  // namespace

Presets::Presets(Platform& machine, const Session& shared, frmOrvalent& window, DirectRun& itsRun,
                 ConfigSaver& itsSaver, ConfigSender& itsSender)
    : platform(machine),
      session(shared),
      main(window),
      run(itsRun),
      saver(itsSaver),
      sender(itsSender) {}

void Presets::Wire() {
  for (std::size_t index = 0; index < main.cmdPre.size(); ++index) {
    main.cmdPre[index].OnClick = [this, index] { cmdPre_MouseUp(index, MouseButton::Left); };
    main.cmdPre[index].OnRightClick = [this, index] { cmdPre_MouseUp(index, MouseButton::Right); };
  }
  main.cmdSaveToPreset.OnClick = [this] { cmdSaveToPreset_Click(); };
  main.mnuPresetView.OnClick = [this] { mnuPresetView_Click(); };
  main.mnuPresetDelete.OnClick = [this] { mnuPresetDelete_Click(); };
  main.mnuPresetRename.OnClick = [this] { mnuPresetRename_Click(); };
  main.mnuPresetEditDesc.OnClick = [this] { mnuPresetEditDesc_Click(); };
}

void Presets::LoadPresetButtons() {
  RemovePresetLeftovers(platform.Files);
  std::error_code error;
  for (fs::directory_iterator at(PresetFolder(platform.Files), error), end; !error && at != end;
       at.increment(error)) {
    if (Upper(at->path().extension().string()) != ".TXT") continue;
    const auto place = ReadPresetPlace(at->path());
    if (place && at->path() == File(place->Slot)) ShowFilled(place->Slot, place->Header);
  }
}

void Presets::Reload() {
  LoadPresetButtons();
  for (Button& button : main.cmdPre) {
    button.Enabled = platform.MSComm1.PortOpen() && button.Tag() != main.EmptyTag;
  }
  main.cmdSaveToPreset.Enabled =
      main.cmdSaveToPreset.Enabled() && FirstEmptyPreset(main).has_value();
}

void Presets::ShowFilled(std::size_t slot, const PresetHeader& header) {
  Button& button = main.cmdPre[slot];
  button.Tag = "";
  button.FontSize = filledFontSize;
  button.ToolTip = header.Description;
  // A file made by hand may lack its caption, but no filled button says "(Empty)".
  button.Text = header.Caption.empty() ? "Preset " + std::to_string(slot + 1) : header.Caption;
  main.ShowPreset(slot, button.Text());
}

void Presets::ShowEmpty(std::size_t slot) {
  Button& button = main.cmdPre[slot];
  button.ToolTip = "";
  button.Text = "(Empty)";
  button.Tag = main.EmptyTag;
  button.FontSize = emptyFontSize;
  button.Enabled = false;
  main.ShowPreset(slot, "");
}

void Presets::ShowFileTrouble(const char* text) { platform.Dialogs.Message({text, fileTrouble}); }

void Presets::cmdPre_MouseUp(std::size_t index, MouseButton button) {
  if (button == MouseButton::Left) {
    ProgramFrom(index);
    return;
  }
  selectedSlot = index;
  main.PopupMenu(main.mnuPreset, main.cmdPre[index]);
}

void Presets::ProgramFrom(std::size_t slot) {
  if (!run.MayStart()) return;
  if (!run.ConfirmClearing(
          "Program connected radio using preset: " + main.cmdPre[slot].ToolTip() + "  ?",
          "Program from Preset")) {
    return;
  }
  bool mayBeSent = false;
  sender.LoadConfigLines(File(slot), false, mayBeSent);
  if (!mayBeSent || !sender.ConfirmPlan()) return;
  run.WhenFree(main.cmdPre[slot], [this, slot] {
    const QuickTask task(run);
    run.KeepBefore("a preset");
    run.ShowTitle("PROGRAMMING.");
    sender.ProgramFromFile(File(slot));
  });
}

std::optional<std::string> Presets::AskCaption(const std::string& title,
                                               const std::string& offered) {
  for (;;) {
    const std::string answer = platform.Dialogs.Input({captionPrompt, title, offered});
    if (answer.empty()) {
      const Answer givenUp = platform.Dialogs.Message(
          {"Cancel Preset Saving ", "Cancel Preset", Icon::None, Buttons::YesNo});
      // On the way out every box answers by itself.
      if (givenUp == Answer::No && !platform.Events.Quitting()) continue;
      return std::nullopt;
    }
    if (answer.size() <= longestCaption) return answer;
    const std::string shortened = answer.substr(0, longestCaption);
    const Answer agreed = platform.Dialogs.Message(
        {"Pre-set button caption will be\r\n\r\ntruncated to: " + shortened, "New Preset Name",
         Icon::None, Buttons::OkCancel});
    if (agreed == Answer::Ok) return shortened;
  }
}

bool Presets::MakeFolder() {
  if (DirectoryExists(PresetFolder(platform.Files))) return true;
  std::error_code error;
  if (fs::create_directories(PresetFolder(platform.Files), error)) return true;
  ShowFileTrouble("Error Creating \\Presets directory.");
  return false;
}

void Presets::cmdSaveToPreset_Click() {
  const auto slot = FirstEmptyPreset(main);
  if (!slot || !run.MayStart()) return;
  const auto caption = AskCaption(ProgramTitle, "");
  if (!caption) return;
  const std::string description = platform.Dialogs.Input({descriptionPrompt, ProgramTitle, ""});
  if (description.empty()) {
    platform.Dialogs.Message({"Preset Save Cancelled"});
    run.ReadRadioAgain();
    return;
  }
  if (!MakeFolder()) return;
  run.WhenFree(main.cmdSaveToPreset,
               [this, slot = *slot, header = PresetHeader{description, *caption}] {
                 const QuickTask task(run);
                 try {
                   SaveInto(slot, header);
                 } catch (const FileError&) {
                   ShowFileTrouble("Unspecified file I/O error.");
                 }
                 run.ReadRadioAgain();
               });
}

void Presets::SaveInto(std::size_t slot, const PresetHeader& header) {
  // Around the whole run: quitting unwinds it from within.
  const FileGuard temporary(PresetTemporary(platform.Files, slot));
  run.ShowTitle("PROGRAMMING.");
  saver.ReportWritten = false;
  saver.WriteConfigToFile(temporary.Path(), false);
  // The saver has told why nothing could be saved.
  if (!saver.ReportWritten && !FileExists(temporary.Path())) return;
  WritePreset(File(slot), slot, header, temporary.Path());
  ShowFilled(slot, header);
  main.cmdPre[slot].Enabled = platform.MSComm1.PortOpen();
  if (!FirstEmptyPreset(main)) main.cmdSaveToPreset.Enabled = false;
}

void Presets::mnuPresetView_Click() {
  const auto viewer = std::make_shared<frmViewer>();
  viewer->Caption = main.cmdPre[selectedSlot].Text();
  if (FileExists(File(selectedSlot))) {
    const ConfigText text = ReadConfigText(File(selectedSlot), mostLinesShown);
    if (!text.Refusal.empty()) {
      ShowFileTrouble("Unspecified File Error.");
      return;
    }
    viewer->ShowLines(text.Lines, session.SoftwareRevision);
  }
  platform.Windows.ShowModal(viewer, main);
}

void Presets::mnuPresetDelete_Click() {
  const Button& button = main.cmdPre[selectedSlot];
  const Answer answer =
      platform.Dialogs.Message({.Text = "Delete Preset ?\r\n\r\nPreset Caption: " + button.Text() +
                                        "\r\n\r\nDescription: " + button.ToolTip(),
                                .Choice = Buttons::YesNo,
                                .Details = "The preset's file is deleted.",
                                .Irreversible = true});
  main.cmdSaveToPreset.Enabled = platform.MSComm1.PortOpen();
  if (answer != Answer::Yes) return;
  std::error_code error;
  fs::remove(File(selectedSlot), error);
  if (error) {
    ShowFileTrouble("Unspecified File I/O Error.");
  } else {
    ShowEmpty(selectedSlot);
  }
}

void Presets::mnuPresetRename_Click() {
  Button& button = main.cmdPre[selectedSlot];
  const auto caption = AskCaption("Rename Preset Button", button.Text());
  if (!caption) return;
  try {
    ChangePreset(File(selectedSlot), PresetLine::Caption, *caption);
    button.Text = *caption;
    main.ShowPreset(selectedSlot, *caption);
  } catch (const FileError&) {
    ShowFileTrouble("Unspecified File I/O Error.");
  }
}

void Presets::mnuPresetEditDesc_Click() {
  Button& button = main.cmdPre[selectedSlot];
  const std::string description = platform.Dialogs.Input(
      {"Edit this presets long description below.", "Edit Preset Description", button.ToolTip()});
  if (description.empty()) return;
  try {
    ChangePreset(File(selectedSlot), PresetLine::Description, description);
    button.ToolTip = description;
  } catch (const FileError&) {
    ShowFileTrouble("Unspecified File I/O Error.");
  }
}

}  // namespace quillmark
