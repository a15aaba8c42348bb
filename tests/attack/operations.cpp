#include "attack/operations.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "restore/frmRestore.h"
#include "sim/firmware_image.h"

namespace quillmark::attack {

namespace {

constexpr const char* password = "Zq7!";
constexpr const char* code = "217";
constexpr const char* newFile =
    "#Created by Kelvor Quillmark Configuration Software Version 1.0.0\r\n"
    "#With Firmware Version:  77-1234A01 3.2.0  01Jan2009\r\n\r\n"
    "OWN Field 7\r\nOWM Spare two\r\nMODE M\r\nPWR 27\r\nBAUD 19200 8N1\r\nAMASK FFFF 0000\r\n"
    "ALARM ACTIVE HI\r\nRXTOT 30\r\nADDR 4321\r\nHOPTIME 7\r\nXMAP 000000F0\r\nXRSSI -77\r\n"
    "DLINK 38400\r\nDLINK ON\r\n";

// Clicks a row of the settings and answers its input box.
void Program(World& world, const char* row, const char* title, const char* value) {
  world.ExpectInput(title).Type(value);
  world.Toggle(row);
}

void ClickInWindow(World& world, const char* row, const char* window,
                   std::initializer_list<const char*> buttons) {
  world.InWindow(window, "CancelButton", [&world, all = std::vector<const char*>(buttons)] {
    world.Run(Milliseconds(100));
    for (const char* button : all) world.Press(button);
  });
  world.Toggle(row);
}

// It is one window for two secrets, and either may come first.
void FillLogin(World& world, const char* menu, const std::string& title, const char* text) {
  world.InWindow("frmLogin", "cmdCancel", [&world, title, text] {
    if (world.Text("frmLogin") != title) return;
    world.Put("txtPassword", text);
    world.Press("frmLogin.cmdOK");
  });
  world.Press(menu);
}

void SetPassword(World& world) {
  world.Press("mnuSetPass");
  world.Run(Milliseconds(200));
  world.Press("PassRadio_0");
  world.Put("Pass1", password);
  world.Put("Pass2", password);
  world.Press("frmSetPass.OKButton");
  world.LeaveWindow("frmSetPass", "CancelButton");
}

void InSetup(World& world, void (*acts)(World&)) {
  world.ExpectBox("Warning").Reply(Answer::Yes);
  world.Press("mnuSetupMode");
  acts(world);
  world.Run(Milliseconds(200));
  world.LeaveWindow("frmSetup", "ExitButton");
}

void Save(World& world) {
  world.ExpectSaveFile("Radio Configuration Save").Choose(world.Out("out/saved.txt"));
  world.ExpectBox("File I/O Error").Containing("Overwrite").Reply(Answer::Yes);
  world.Press("cmdSaveToFile");
}

void SavePreset(World& world) {
  world.ExpectInput(ProgramTitle).Containing("short name").Type("Hill");
  world.ExpectInput(ProgramTitle).Containing("meaningful").Type("On the hill");
  world.Press("cmdSaveToPreset");
}

void ProgramFile(World& world) {
  world.WriteFile(world.Out("in/new.txt"), newFile);
  world.ExpectOpenFile("Radio Configuration Restore").Choose(world.Out("in/new.txt"));
  world.Press("cmdProgramFromFile");
}

void ProgramPreset(World& world) {
  world.ExpectBox("Program from Preset").Reply(Answer::Yes);
  world.Press("cmdPre_0");
}

void Role(World& world, const char* button, const char* title) {
  world.ExpectBox(title).Reply(Answer::Yes);
  world.Press(button);
}

void Master(World& world) {
  world.ExpectBox("Repeater ?").Reply(Answer::Yes);
  Role(world, "cmdMaster", "MASTER");
}

void Repeater(World& world) {
  world.ExpectInput("Enter XADDR").Type("7");
  Role(world, "cmdRepeater", "REPEATER");
}

void SubRemote(World& world) {
  world.InWindow("frmSimpleXMAP", "cmdSet", [&world] {
    world.Press("chkXADDR_1");
    world.Press("cmdSet");
    world.Run(Seconds(1));
  });
  Role(world, "cmdSubRemote", "REPEATER");
}

frmRestore* RestoreWindow(World& world) {
  return world.WindowOpen("frmRestore") ? dynamic_cast<frmRestore*>(&world.Find("frmRestore"))
                                        : nullptr;
}

void AwaitRestore(World& world) {
  world.RunUntil(
      [&world] {
        const frmRestore* window = RestoreWindow(world);
        return window == nullptr || (window->ReadIdle && !window->Timer1.Enabled());
      },
      Seconds(120));
}

void InRestore(World& world, void (*acts)(World&)) {
  world.InWindow("frmRestore", "CloseButton", [&world, acts] {
    AwaitRestore(world);
    acts(world);
    AwaitRestore(world);
  });
  world.Press("mnuConfigRestore");
}

void LoadInRestore(World& world) {
  world.WriteFile(world.Out("in/new.txt"), newFile);
  world.ExpectOpenFile("Configuration File Selection").Choose(world.Out("in/new.txt"));
  world.Press("tbr_OpenConfig");
  AwaitRestore(world);
}

void ProgramInRestore(World& world) {
  LoadInRestore(world);
  world.Press("CheckAllButton");
  world.Press("tbr_ProgramRadio");
}

void SaveInRestore(World& world) {
  world.ExpectSaveFile("Radio Configuration Save").Choose(world.Out("out/window.txt"));
  world.ExpectBox("File I/O Error").Containing("verwrite").Reply(Answer::Yes);
  world.Press("tbr_SaveConfig");
}

void Upgrade(World& world) {
  world.WriteFile(world.Out("in/new.s28"), sim::FirmwareImage("3.2.1", 1024));
  world.ExpectOpenFile("Firmware Upgrade File Selection").Choose(world.Out("in/new.s28"));
  world.ExpectBox("Erase Current Firmware?").Reply(Answer::Yes);
  world.Press("mnuSendText");
}

void ZoneQuality(World& world) {
  world.InWindow("frmZoneData", "mnuExitScreen", [&world] {
    world.Run(Seconds(2));
    world.InWindow("frmZoneQuality", "mnuExitScreen", [&world] { world.Run(Seconds(3)); });
    world.Press("mnuShowZoneQuality");
  });
  world.Press("ButtonZoneData");
}

void OldFile(World& world, const char* name) { world.WriteFile(world.Out(name), "OLD\r\n"); }

void PresetFile(World& world) {
  world.WriteFile(world.DataFolder() / "Presets" / "Preset1.txt",
                  "#PresetFile1\r\n#Name:First\r\n#PresetCaption:One\r\n" + std::string(newFile));
}

// A part of the line is a line too, and another one. The user stops where a window keeps a key from
// the terminal.
void TypeSlowly(World& world, std::string_view line = "owm xpri 5\r") {
  world.After(Milliseconds(60), [&world, line] {
    if (!world.Type("txtTerm", std::string(line.substr(0, 1)))) return;
    if (line.size() > 1) TypeSlowly(world, line.substr(1));
  });
}

bool Holds(World& world, const char* word, const char* value) {
  return world.Radio().Setting(word) == value;
}

// clang-format off
constexpr Operation operations[] = {
    {.Name = "connect", .Run = [](World& w) { w.Press("tbr_Connect"); }, .Connected = false},
    {.Name = "read", .Run = [](World& w) { w.Press("ButtonRefresh"); }},
    {.Name = "read-odd-name", .Run = [](World& w) { w.Press("ButtonRefresh"); }, .OwnName = "Downtown Water"},
    {.Name = "setting", .Run = [](World& w) { Program(w, "PowerLevel", "Program Power Output Level", "27"); },
     .Succeeded = [](World& w) { return Holds(w, "pwr", "27 dBm"); }},
    {.Name = "mask", .Run = [](World& w) { Program(w, "AlarmMask", "Program Alarm Mask", "FFFF 0F0F"); },
     .Succeeded = [](World& w) { return Holds(w, "amask", "FFFF 0F0F"); }},
    {.Name = "message", .Run = [](World& w) { Program(w, "OwnerMessage", "Program Owner's Message", "Second act"); },
     .Succeeded = [](World& w) { return Holds(w, "owm", "Second act"); }},
    {.Name = "on-off", .Run = [](World& w) {
       w.ExpectBox("Forward Error Correction Setting").Reply(Answer::Ok);
       w.Toggle("FEC");
     }, .Succeeded = [](World& w) { return Holds(w, "fec", "OFF"); }},
    {.Name = "sync-row", .Run = [](World& w) { w.Toggle("ShowSync"); }},
    {.Name = "alarm-row", .Run = [](World& w) { w.Press("AlarmInfo"); }},
    {.Name = "dlink", .Run = [](World& w) { ClickInWindow(w, "DLINK", "frmDLINKOptions", {"OnOption_0", "BaudRate_7", "OKButton"}); },
     .Succeeded = [](World& w) { return Holds(w, "dlink", "115200 (ON)"); }},
    {.Name = "dtype", .Run = [](World& w) { ClickInWindow(w, "DTYPE", "frmDTYPEOptions", {"NodeButton"}); },
     .Succeeded = [](World& w) { return Holds(w, "dtype", "NODE"); }},
    {.Name = "rtu", .Run = [](World& w) { ClickInWindow(w, "SoftRTU", "frmRTUOptions", {"OnOption_1", "OKButton"}); },
     .Succeeded = [](World& w) { return Holds(w, "rtu", "5 (OFF)"); }},
    {.Name = "xmap", .Run = [](World& w) { ClickInWindow(w, "XMAP", "frmXMAP", {"UnCheckAllButton", "Check1_31", "ProgramButton"}); },
     .Succeeded = [](World& w) { return Holds(w, "xmap", "80000000"); }},
    {.Name = "login", .Run = [](World& w) { FillLogin(w, "tbr_Login", "Enter Password:", password); }, .Password = password, .Secret = password,
     .Succeeded = [](World& w) { return w.Radio().LoggedIn(); }},
    {.Name = "login-cancel", .Run = [](World& w) { FillLogin(w, "mnuAccessCode", "(cancelled)", ""); }, .Password = password},
    {.Name = "set-password", .Run = SetPassword, .Secret = password,
     .Succeeded = [](World& w) { return !w.BoxTexts().empty() || w.Stored("Preferences", "PassEnabled") == "True"; }},
    {.Name = "code", .Run = [](World& w) { FillLogin(w, "mnuEncryptCode", "Enter Encryption Code:", code); }, .Secret = code},
    {.Name = "setup-frequency", .Run = [](World& w) {
       InSetup(w, [](World& in) {
         in.ExpectInput("Program Rx Frequency").Type("910.000");
         in.Press("RxFrequency");
       });
     }, .Succeeded = [](World& w) { return Holds(w, "rx", "910.000"); }},
    {.Name = "setup-key", .Run = [](World& w) {
       InSetup(w, [](World& in) {
         in.Press("Key");
         in.Run(Milliseconds(300));
         in.Press("DKey");
       });
     }},
    {.Name = "setup-close", .Run = [](World& w) { InSetup(w, [](World& in) { in.CloseWindow("frmSetup"); }); }},
    {.Name = "save", .Run = Save, .Target = "out/saved.txt"},
    {.Name = "save-over", .Run = Save, .Prepare = [](World& w) { OldFile(w, "out/saved.txt"); }, .Target = "out/saved.txt"},
    {.Name = "save-preset", .Run = SavePreset, .Target = "data/Presets/Preset1.txt"},
    {.Name = "program-file", .Run = ProgramFile, .Succeeded = [](World& w) { return Holds(w, "own", "Field 7"); }},
    {.Name = "program-preset", .Run = ProgramPreset, .Prepare = PresetFile,
     .Succeeded = [](World& w) { return Holds(w, "own", "Field 7"); }},
    {.Name = "master", .Run = Master, .Mode = 'R', .Succeeded = [](World& w) { return Holds(w, "mode", "M"); }},
    {.Name = "remote", .Run = [](World& w) { Role(w, "cmdRemote", "REMOTE"); },
     .Succeeded = [](World& w) { return Holds(w, "mode", "R"); }},
    {.Name = "repeater", .Run = Repeater, .Succeeded = [](World& w) { return Holds(w, "xaddr", "7"); }},
    {.Name = "sub-remote", .Run = SubRemote, .Succeeded = [](World& w) { return Holds(w, "xpri", "1"); }},
    {.Name = "print", .Run = [](World& w) {
       w.ExpectPrinter("00123456.txt").ChoosePrinter("Office");
       w.Press("cmdPrint");
     }, .Target = "data/Temp/00123456.txt"},
    {.Name = "restore-read", .Run = [](World& w) { InRestore(w, [](World&) {}); }},
    {.Name = "restore-load", .Run = [](World& w) { InRestore(w, LoadInRestore); }},
    {.Name = "restore-program", .Run = [](World& w) { InRestore(w, ProgramInRestore); },
     .Succeeded = [](World& w) { return Holds(w, "own", "Field 7"); }},
    {.Name = "restore-save", .Run = [](World& w) { InRestore(w, SaveInRestore); },
     .Prepare = [](World& w) { OldFile(w, "out/window.txt"); }, .Target = "out/window.txt", .MayOmitLines = true},
    {.Name = "upgrade", .Run = Upgrade, .Succeeded = [](World& w) { return Holds(w, "srev", "3.2.1"); }},
    {.Name = "rssi", .Run = [](World& w) {
       w.InWindow("frmRSSI", "Command1", [&w] { w.Run(Seconds(2)); });
       w.Press("ButtonRSSI");
     }, .Mode = 'R'},
    {.Name = "zone-data", .Run = [](World& w) {
       w.InWindow("frmZoneData", "mnuExitScreen", [&w] { w.Run(Seconds(4)); });
       w.Press("ButtonZoneData");
     }},
    {.Name = "zone-quality", .Run = ZoneQuality},
    {.Name = "typed", .Run = [](World& w) { TypeSlowly(w); },
     .Succeeded = [](World& w) { return Holds(w, "owm", "xpri 5"); }},
};
// clang-format on

}  // namespace

std::span<const Operation> Operations() { return operations; }

const Operation* FindOperation(std::string_view name) {
  const auto* at = std::find_if(std::begin(operations), std::end(operations),
                                [&](const Operation& each) { return name == each.Name; });
  return at == std::end(operations) ? nullptr : at;
}

}  // namespace quillmark::attack
