#include "app/settings_rows.h"

namespace quillmark {

SettingRow::SettingRow(Form& form, Frame& frame, const Design& design)
    : ValueField(form, &frame, design.Name, design.Start),
      Caption(form, &frame, design.LabelName, design.Caption) {
  MoveTo(design.Top);
  ToolTip = design.Tip;
  MousePointer = *design.Tip == '\0' ? Pointer::NoDrop : Pointer::Arrow;
  Caption.ToolTip = "Click for more Information";
}

void SettingRow::Show(bool shown) {
  Enabled = shown;
  Visible = shown;
  Caption.Enabled = shown;
  Caption.Visible = shown;
}

void SettingRow::MoveTo(double top) {
  Top = top;
  Caption.Top = top;
}

void SettingRow::AllowClick(bool allowed) {
  Enabled = allowed;
  MousePointer = allowed ? Pointer::Arrow : Pointer::NoDrop;
}

// clang-format off
SettingsRows::SettingsRows(Form& form)
    : InfoFrame(form, &form, "InfoFrame", "GENERAL"),
      SettingsTab(form, &form, "SettingsTab",
                  {"Radio Settings 1", "Radio Settings 2", "Network Settings 1", "Network Settings 2",
                   "Store and Forward Settings", "Network Wide Diagnostics"}),
      NetSet{{{form, &form, "NetSet_0"}, {form, &form, "NetSet_1"}, {form, &form, "NetSet_2"},
              {form, &form, "NetSet_3"}, {form, &form, "NetSet_4"}, {form, &form, "NetSet_5"}}},
      SerialNumber(form, InfoFrame, {"SerialNumber", "SnumLabel", "Serial Number", 360}),
      UnitAddr(form, InfoFrame, {"UnitAddr", "UnitLabel", "Unit Address", 720, "Click to program the unit address"}),
      SoftwareRev(form, InfoFrame, {"SoftwareRev", "SrevLabel", "Software Rev.", 1080}),
      OwnerName(form, InfoFrame, {"OwnerName", "OwnLabel", "Radio Model", 1440, "Click to program the owner's name"}),
      OwnerMessage(form, InfoFrame, {"OwnerMessage", "OwmLabel", "Message", 1800, "Click to program the owner's message"}),
      AlarmInfo(form, InfoFrame, {"AlarmInfo", "AlarmLabel", "Alarms", 2160, "Click to show the radio's status in the terminal"}),
      Temperature(form, InfoFrame, {"Temperature", "TempLabel", "Temperature", 2520}),
      Mode(form, NetSet[0], {"Mode", "RmdLabel", "Radio Mode", 360, "Click to program the radio mode"}),
      PowerLevel(form, NetSet[0], {"PowerLevel", "PowerLabel", "Power Level", 720, "Click to program the power level"}),
      BaudRate(form, NetSet[0], {"BaudRate", "DataBaudLabel", "Data Baud Rate", 1080, "Click to program the data baud rate"}),
      Port(form, NetSet[0], {"Port", "PortLabel", "Port", 1440, "Click to program the port type"}),
      DeviceType(form, NetSet[0], {"DeviceType", "DevLabel", "Device Type", 1800, "Click to program the device type"}),
      AlarmMask(form, NetSet[0], {"AlarmMask", "AlarmMaskLabel", "Alarm Mask", 2160, "Click to program the alarm mask"}),
      AlarmSense(form, NetSet[0], {"AlarmSense", "AlrsLabel", "Alarm Sense", 2520, "Click to program the alarm sense"}),
      CTSdelay(form, NetSet[1], {"CTSdelay", "CTSDelayLabel", "CTS Delay", 360, "Click to program the CTS delay"}),
      CTSHOLDdelay(form, NetSet[1], {"CTSHOLDdelay", "CTSHoldLabel", "CTSHOLD Delay", 720, "Click to program the CTSHOLD delay"}),
      RxTimeOut(form, NetSet[1], {"RxTimeOut", "RxtoLabel", "Receive Time Out Timer", 1080, "Click to program the receive time-out timer"}),
      RXD(form, NetSet[1], {"RXD", "RXDLabel", "Receive Data Holdover", 1440, "Click to program the receive data holdover"}),
      SleepMode(form, NetSet[1], {"SleepMode", "SleepLabel", "Sleep Mode", 1800, "Click to program the sleep mode"}),
      LPMHOLD(form, NetSet[1], {"LPMHOLD", "LPMHOLDLabel", "Low Power Mode HOLD", 2160, "Click to program the low power mode holdover"}),
      NetworkAddress(form, NetSet[2], {"NetworkAddress", "NetAddrLabel", "Network Address", 360, "Click to program the network address"}),
      CSADDR(form, NetSet[2], {"CSADDR", "CSADDRLabel", "Clock Sync Address", 720, "Click to program the clock sync address"}),
      HopTime(form, NetSet[2], {"HopTime", "HopLabel", "Hop Time", 1080, "Click to program the hop time"}),
      SkippedZones(form, NetSet[2], {"SkippedZones", "SkipLabel", "Skipped Zones", 1440, "Click to program the skipped zones"}),
      LPM(form, NetSet[2], {"LPM", "LPMLabel", "Low Power Mode Setting", 1800, "Click to program the low power mode"}),
      RepeatCount(form, NetSet[3], {"RepeatCount", "RptctLabel", "Repeat Count", 360, "Click to program the repeat count"}),
      RetryCount(form, NetSet[3], {"RetryCount", "RetryLabel", "Retry Count", 720, "Click to program the retry count"}),
      FEC(form, NetSet[3], {"FEC", "FECLabel", "Forward Error Correction", 1080, "Click to program the forward error correction"}),
      DataBuff(form, NetSet[3], {"DataBuff", "BuffLabel", "Data Buffering", 1440, "Click to program the data buffering"}),
      StoreAndForward(form, NetSet[4], {"StoreAndForward", "SAFLabel", "Store and Forward", 360, "Click to program the store and forward mode"}),
      XADDR(form, NetSet[4], {"XADDR", "XADDRLabel", "Extension Address", 720, "Click to program the extension address"}),
      XMIN(form, NetSet[4], {"XMIN", "XMINLabel", "Min. Extension Addr.", 1080, "Click to program the lowest extension address"}),
      XMAX(form, NetSet[4], {"XMAX", "XMAXLabel", "Max. Extension Addr.", 1440, "Click to program the highest extension address"}),
      XPRI(form, NetSet[4], {"XPRI", "XPRILabel", "Primary Extension Addr.", 1080, "Click to program the primary extension address"}),
      XRSSI(form, NetSet[4], {"XRSSI", "XRSSILabel", "Extension RSSI", 1440, "Click to program the extension RSSI"}),
      XMAP(form, NetSet[4], {"XMAP", "XMAPLabel", "Extension Map", 1800, "Click to program the extension map", "Click to view/change"}),
      ShowSync(form, NetSet[4], {"ShowSync", "ShowSyncLabel", "Show Sync", 2160, "Click to read the synchronisation again"}),
      DTYPE(form, NetSet[5], {"DTYPE", "DTypeLabel", "DTYPE", 360, "Click to program the diagnostic type"}),
      DLINK(form, NetSet[5], {"DLINK", "DLinkLabel", "DLINK", 800, "Click to program the diagnostic link"}),
      SoftRTU(form, NetSet[5], {"SoftRTU", "SoftRTULabel", "Software RTU", 1240, "Click to program the software RTU"}),
      DiagOptions(form, NetSet[5], {"DiagOptions", "OptionsLabel", "Diagnostic Options", 1680}) {
  SettingsTab.Visible = false;
}
// clang-format on

}  // namespace quillmark
