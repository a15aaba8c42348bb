#include "restore/restore_rows.h"

#include "text/text.h"

namespace quillmark {

namespace {

constexpr RevisionGate always{};
constexpr RevisionGate below200{0, 200};
constexpr RevisionGate from100{100};
constexpr RevisionGate from200{200};
constexpr RevisionGate from300{300};
constexpr RevisionGate from320{320};

using Id = RestoreSetting;
using Follows = RestoreRow::Follows;
using Form = RestoreRow::Form;

std::string Normalised(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c == ':' || (c == ' ' && (plain.empty() || plain.back() == ' '))) continue;
    plain += c;
  }
  return std::string(Trim(plain));
}

bool HasNoValue(std::string_view text) {
  return text.empty() || Contains(text, NoValue) || Contains(text, "NOT AVAILABLE");
}

}  // namespace

// The clock sync address is shown, loaded and saved from 300 on, and read from 320 on.
// clang-format off
constinit const std::array<RestoreRow, RestoreSettingCount> RestoreRows{{
    {Id::UnitAddr, "UnitCheck", "Restore Unit Address", "UnitAddr", "NewUnitAddr", "unit", 0, 360},
    {Id::OwnerName, "OwnCheck", "Restore Owner's Name", "OwnerName", "NewOwnerName", "own", 0, 720, always, always, always, Follows::None, Form::Owner},
    {Id::OwnerMessage, "OwmCheck", "Restore Owner's Msg.", "OwnerMessage", "NewOwnerMessage", "owm", 0, 1080, always, always, always, Follows::None, Form::Owner},
    {Id::Mode, "ModeCheck", "Restore Radio Mode", "Mode", "NewMode", "mode", 1, 360},
    {Id::PowerLevel, "PowerCheck", "Restore Power Level", "PowerLevel", "NewPowerLevel", "pwr", 1, 720},
    {Id::BaudRate, "DataBaudCheck", "Restore Data Baud Rate", "BaudRate", "NewBaudRate", "baud", 1, 1080},
    {Id::Port, "PortCheck", "Restore Port", "Port", "NewPort", "port", 1, 1440},
    {Id::DeviceType, "DevCheck", "Restore Device Type", "DeviceType", "NewDeviceType", "device", 1, 1800},
    {Id::AlarmMask, "AlarmMaskCheck", "Restore Alarm Mask", "AlarmMask", "NewAlarmMask", "amask", 1, 2160, always, always, always, Follows::None, Form::AlarmMask},
    {Id::AlarmSense, "AlrsCheck", "Restore Alarm Sense", "AlarmSense", "NewAlarmSense", "asense", 1, 2520, always, always, always, Follows::None, Form::AlarmSense},
    {Id::CTSdelay, "CTSDelayCheck", "Restore CTS Delay", "CTSdelay", "NewCTSdelay", "cts", 2, 360},
    {Id::CTSHOLDdelay, "CTSHoldCheck", "Restore CTSHOLD Delay", "CTSHOLDdelay", "NewCTSHOLDdelay", "ctshold", 2, 720},
    {Id::RxTimeOut, "RxtoCheck", "Restore Rx. Time Out Timer", "RxTimeOut", "NewRxTimeOut", "rxtot", 2, 1080, always, always, always, Follows::None, Form::Line, true},
    {Id::RXD, "RXDCheck", "Restore Rx. Data Holdover", "RXD", "NewRXD", "rxd", 2, 1440, from300, from300, from300},
    {Id::SleepMode, "SleepCheck", "Restore Sleep Mode", "SleepMode", "NewSleepMode", "sleep", 2, 1800, always, always, always, Follows::NotMaster},
    {Id::LPMHOLD, "LPMHOLDCheck", "Restore Low Power Mode HOLD", "LPMHOLD", "NewLPMHOLD", "lpmhold", 2, 2160, from320, from320, from320},
    {Id::NetworkAddress, "NetAddrCheck", "Restore Network Address", "NetworkAddress", "NewNetworkAddress", "addr", 3, 360},
    {Id::CSADDR, "CSADDRCheck", "Restore Clock Sync Address", "CSADDR", "NewCSADDR", "csaddr", 3, 720, from300, from320, from300, Follows::Master, Form::Line, true},
    {Id::HopTime, "HopCheck", "Restore Hop Time", "HopTime", "NewHopTime", "hoptime", 3, 1080, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::SkippedZones, "SkipCheck", "Restore Skipped Zones", "SkippedZones", "NewSkippedZones", "skip", 3, 1440, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::LPM, "LPMCheck", "Restore Low Power Mode", "LPM", "NewLPM", "lpm", 3, 1800, from320, from320, from320, Follows::Master, Form::Line, true},
    {Id::RepeatCount, "RptctCheck", "Restore Repeat Count", "RepeatCount", "NewRepeatCount", "repeat", 4, 360, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::RetryCount, "RetryCheck", "Restore Retry Count", "RetryCount", "NewRetryCount", "retry", 4, 720, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::FEC, "FECCheck", "Restore Forward Error Correction", "FEC", "NewFEC", "fec", 4, 1080, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::DataBuff, "BuffCheck", "Restore Data Buffering", "DataBuff", "NewDataBuff", "buff", 4, 1440, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::StoreAndForward, "SAFCheck", "Restore Store and Forward", "StoreAndForward", "NewStoreAndForward", "saf", 5, 360, always, always, always, Follows::MasterAndTick, Form::Line, true},
    {Id::XADDR, "XADDRCheck", "Restore Extension Address", "XADDR", "NewXADDR", "xaddr", 5, 720, always, always, always, Follows::NotRemoteAtLoad},
    {Id::XMAX, "XMAXCheck", "Restore XMAX", "XMAX", "NewXMAX", "xmax", 5, 1440, below200, below200},
    {Id::XMIN, "XMINCheck", "Restore XMIN", "XMIN", "NewXMIN", "xmin", 5, 1080, below200, below200},
    {Id::XMAP, "XMAPCheck", "Restore Extension MAP", "XMAP", "NewXMAP", "xmap", 5, 1080, from200, from200, from100},
    {Id::XPRI, "XPRICheck", "Restore Primary Extension Addr.", "XPRI", "NewXPRI", "xpri", 5, 1440, from200, from200, from100},
    {Id::XRSSI, "XRSSICheck", "Restore Extension RSSI", "XRSSI", "NewXRSSI", "xrssi", 5, 1800, from200, from200, from100},
    {Id::DTYPE, "DTYPECheck", "Restore DTYPE", "DTYPE", "NewDTYPE", "dtype", 6, 360, from200, from200, from100},
    {Id::DLINK, "DLINKCheck", "Restore DLINK", "DLINK", "NewDLINK", "dlink", 6, 800, from200, from200, from100, Follows::None, Form::Switched},
    {Id::SoftRTU, "SoftRTUCheck", "Restore Software RTU", "SoftRTU", "NewSoftRTU", "rtu", 6, 1240, from200, from200, from100, Follows::None, Form::Switched},
}};
// clang-format on

bool RevisionGate::HoldsIfUnknown(const Revision& revision) const {
  const auto number = revision.Number();
  return !number || (*number >= From && *number < Below);
}

bool RevisionGate::HoldsBelowIfUnknown(const Revision& revision) const {
  const double number = revision.Number().value_or(0);
  return number >= From && number < Below;
}

std::string_view RestoreOpening(const RestoreRow& row) {
  switch (row.Text) {
    case Form::Owner:
      return "";
    case Form::AlarmMask:
      return "MASK";
    case Form::AlarmSense:
      return "ALARM";
    case Form::Line:
    case Form::Switched:
      break;
  }
  return row.Word;
}

std::size_t RestoreReadPlace(std::size_t n) {
  constexpr auto upper = static_cast<std::size_t>(RestoreSetting::XMAX);
  constexpr auto lower = static_cast<std::size_t>(RestoreSetting::XMIN);
  return n == upper ? lower : n == lower ? upper : n;
}

RestoreMatch MatchOf(std::string_view current, std::string_view next) {
  if (HasNoValue(current) || HasNoValue(next)) return RestoreMatch::Missing;
  return Normalised(current) == Normalised(next) ? RestoreMatch::Equal : RestoreMatch::Differs;
}

}  // namespace quillmark
