#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "access/frmLogin.h"
#include "access/frmSetPass.h"
#include "access/frmSetup.h"
#include "config/editor/frmConfigFile.h"
#include "config/frmComparison.h"
#include "config/presets/frmViewer.h"
#include "diagnostics/frmRSSI.h"
#include "diagnostics/frmZoneData.h"
#include "diagnostics/frmZoneQuality.h"
#include "firmware/frmProgram.h"
#include "history/frmHistory.h"
#include "history/radio_history.h"
#include "link/connection.h"
#include "link/frmProperties.h"
#include "pictures/report.h"
#include "platform/platform.h"
#include "prefs/frmPreferences.h"
#include "qt/machine.h"
#include "radio/read_cycle.h"
#include "restore/frmRestore.h"
#include "runs/frmSentSettings.h"
#include "settings/frmDLINKOptions.h"
#include "settings/frmDTYPEOptions.h"
#include "settings/frmRTUOptions.h"
#include "settings/frmSimpleRptrSetup.h"
#include "settings/frmSimpleXMAP.h"
#include "settings/frmXMAP.h"
#include "start/console.h"
#include "start/frmHelp.h"
#include "start/frmSplash.h"

namespace quillmark {

// How the logic makes the form of each window, for tests that go through all windows or show some
// without the acts that lead there.
struct WindowForms {
  quillmark::Platform& Platform;
  quillmark::Console& Console;
  frmOrvalent& Main = Console.Main();
  Session& Shared = Console.Shared();
  Conversation& Talk = Console.Talk();
  quillmark::Connection Connection{Platform, Shared, Main, Talk};
  ReadCycle Cycle{Platform, Shared, Main, Connection, Talk};
  RadioHistory History{Platform, Shared, Main, Cycle, Talk};

  // Null when the table below has no row of that name.
  std::shared_ptr<Form> Make(const std::string& name) {
    const auto code = frmLogin::Command::Code;
    const std::map<std::string, std::function<std::shared_ptr<Form>()>> makers{
        {"frmOrvalent", [&] { return Main.shared_from_this(); }},
        {"frmSplash",
         [&] { return Of<frmSplash>(Platform.Events, Platform.Desktop, Shared, [] {}); }},
        {"frmHelp", [] { return Of<frmHelp>(); }},
        {"frmPreferences",
         [&] {
           return Of<frmPreferences>(Platform.Preferences, Shared, Main.txtTerm, Platform.Desktop);
         }},
        {"frmProperties", [&] { return Of<frmProperties>(Platform, Shared, Main, [] {}); }},
        {"frmDLINKOptions", [&] { return Of<frmDLINKOptions>(Platform, Main, Talk); }},
        {"frmDTYPEOptions", [&] { return Of<frmDTYPEOptions>(Platform, Main, Talk); }},
        {"frmRTUOptions", [&] { return Of<frmRTUOptions>(Platform, Main, Talk); }},
        {"frmXMAP", [&] { return Of<frmXMAP>(Platform, Shared, Main, Talk, "0000000F"); }},
        {"frmSimpleXMAP", [&] { return Of<frmSimpleXMAP>(Platform, Main, Talk); }},
        {"frmSimpleRptrSetup", [] { return Of<frmSimpleRptrSetup>(); }},
        {"frmLogin", [&] { return Of<frmLogin>(Platform, Main, Talk, code); }},
        {"frmSetPass", [&] { return Of<frmSetPass>(Platform, Shared, Main, Talk); }},
        {"frmSetup", [&] { return Of<frmSetup>(Platform, Shared, Main, Talk); }},
        {"frmProgram", [&] { return Of<frmProgram>(Platform, Shared); }},
        {"frmRSSI", [&] { return Of<frmRSSI>(Platform, Main, Talk); }},
        {"frmZoneData", [&] { return Of<frmZoneData>(Platform, Main, Talk); }},
        {"frmZoneQuality", [&] { return Of<frmZoneQuality>(Platform, Main, Talk); }},
        {"frmViewer", [] { return Of<frmViewer>(); }},
        {"frmConfigFile", [&] { return Of<frmConfigFile>(Platform); }},
        {"frmSentSettings", [] { return Of<frmSentSettings>("1 of 2 settings taken", "PWR\r\n"); }},
        {"frmHistory", [&] { return Of<frmHistory>(Platform, Shared, History); }},
        {"frmComparison",
         [] {
           const auto values = [](const char* line) { return ValuesOf({std::string(line)}); };
           return Of<frmComparison>("a", "b", CompareValues(values("PWR 30"), values("PWR 20")));
         }},
        {"frmRestore", [&] { return Of<frmRestore>(Platform, Shared, Main, Connection); }},
    };
    const auto found = makers.find(name);
    return found == makers.end() ? nullptr : found->second();
  }

 private:
  template <class Made, class... Given>
  static std::shared_ptr<Form> Of(Given&&... given) {
    return std::make_shared<Made>(std::forward<Given>(given)...);
  }
};

// The program as it stands before anything is done: the real machine, the boxes answered by a
// report, the logic, and the forms of all windows.
struct IdleProgram {
  quillmark::Machine Machine;
  ReportDialogs Boxes;
  quillmark::Platform Platform = Machine.AsPlatform(Boxes);
  quillmark::Console Console{Platform};
  WindowForms Forms{Platform, Console};
};

}  // namespace quillmark
