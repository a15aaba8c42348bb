#pragma once

#include <array>
#include <string>

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"

namespace quillmark {

// One setting of the radio in the main window: its value, which a click programs, and its label,
// which a click explains.
class SettingRow : public ValueField {
 public:
  struct Design {
    const char* Name;
    const char* LabelName;
    const char* Caption;
    double Top;            // twips from the top of the frame
    const char* Tip = "";  // of the value
    const char* Start = "n/a";
  };

  // A row with a tip can be clicked and starts with the arrow pointer.
  SettingRow(Form& form, Frame& frame, const Design& design);

  Label Caption;

  void Show(bool shown);
  void MoveTo(double top);
  // Enabled with the arrow pointer, or disabled with the no-drop pointer.
  void AllowClick(bool allowed);
};

// The rows of the main window by frame: the information frame and the six frames under the tabs.
// Part of the main window, and as long-lived.
class SettingsRows {
 public:
  explicit SettingsRows(Form& form);

  Frame InfoFrame;
  TabStrip SettingsTab;
  std::array<Frame, 6> NetSet;

  SettingRow SerialNumber, UnitAddr, SoftwareRev, OwnerName, OwnerMessage, AlarmInfo, Temperature;
  SettingRow Mode, PowerLevel, BaudRate, Port, DeviceType, AlarmMask, AlarmSense;
  SettingRow CTSdelay, CTSHOLDdelay, RxTimeOut, RXD, SleepMode, LPMHOLD;
  SettingRow NetworkAddress, CSADDR, HopTime, SkippedZones, LPM;
  SettingRow RepeatCount, RetryCount, FEC, DataBuff;
  SettingRow StoreAndForward, XADDR, XMIN, XMAX, XPRI, XRSSI, XMAP, ShowSync;
  SettingRow DTYPE, DLINK, SoftRTU, DiagOptions;
};

}  // namespace quillmark
