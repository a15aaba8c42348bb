// How the pictures of the store and restore window are taken.

#include <QTimer>
#include <fstream>

#include "pictures/report.h"
#include "pictures/window_pictures.h"
#include "qt/binding/qt_windows.h"
#include "restore/frmRestore.h"
#include "start/console.h"

namespace quillmark {

namespace {

constexpr int look = 10;                 // ms between looks how far the window has come
constexpr std::size_t halfOfBlocks = 4;  // the place of the block that shows the half

// As a radio at another place was saved.
constexpr const char* sampleName = "north-ridge-pump-station-2.txt";
constexpr const char* sampleFile =
    "Created by Kelvor Quillmark Configuration Software Version 1.0.0\r\n"
    "UNIT 1234\r\nOWN WATERWORKS OF THE NORTH RIDGE\r\n"
    "OWM PUMP STATION 2, CALL THE CONTROL ROOM BEFORE TOUCHING ANYTHING IN HERE\r\n"
    "MODE R\r\nPWR 27 dBm\r\nBAUD 9600 8N1\r\nPORT RS232\r\nDEVICE DCE\r\nAMASK FFFF 00FF\r\n"
    "ALARM ACTIVE: HI\r\nCTS 0\r\nCTSHOLD 0\r\nRXD 0\r\nSLEEP ON\r\nLPMHOLD 20\r\n"
    "ADDR 4321\r\nHOPTIME 28\r\nREPEAT 2\r\nRETRY 5\r\nFEC OFF\r\nBUFF ON\r\n"
    "XADDR 0\r\nXMAP 00000002\r\nXPRI 1\r\nXRSSI -120\r\nDTYPE NODE\r\n"
    "DLINK 19200\r\nDLINK ON\r\nRTU 12\r\nRTU OFF\r\n";

}  // namespace

void WindowPictures::TakeRestoreWindow() {
  dialogs.FileToOpen = FileOf(sampleName);
  std::ofstream(*dialogs.FileToOpen, std::ios::binary) << sampleFile;
  bool halfSeen = false;
  const auto takeTabs = [this](frmRestore& form) {
    form.tbr_OpenConfig.Click();
    for (const auto id : {SettingId::UnitAddr, SettingId::PowerLevel}) {
      form.At(id).Check.Click();
    }
    for (int tab = 1; tab <= static_cast<int>(form.TabStrip.Tabs.size()); ++tab) {
      form.TabStrip.UserSelect(tab);
      Picture(form, "restore-" + std::to_string(tab));
    }
    form.CloseButton.Click();
  };
  QTimer looks;
  QObject::connect(&looks, &QTimer::timeout, &looks, [&] {
    auto* form = static_cast<frmRestore*>(windows.FormNamed("frmRestore"));
    if (form == nullptr) return;
    if (form->ReadIdle) {
      looks.stop();
      platform.Events.Deliver([&] { takeTabs(*form); });
    } else if (!halfSeen && form->ProgressBlock[halfOfBlocks].Visible()) {
      halfSeen = true;
      Picture(*form, "restore-reading");
    }
  });
  looks.start(look);
  console.Main().mnuConfigRestore.Click();
  dialogs.FileToOpen.reset();
  // Nothing was programmed, so that no read is needed.
  console.Shared().DropRead();
}

}  // namespace quillmark
