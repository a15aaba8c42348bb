#include "attack/rows.h"

namespace quillmark::attack {

namespace {

using Rows = SettingsRows;

constexpr ShownRow rows[] = {
    {"SerialNumber", "ser", &Rows::SerialNumber},
    {"UnitAddr", "unit", &Rows::UnitAddr},
    {"SoftwareRev", "srev", &Rows::SoftwareRev},
    {"OwnerName", "own", &Rows::OwnerName},
    {"OwnerMessage", "owm", &Rows::OwnerMessage},
    {"Temperature", "temp", &Rows::Temperature},
    {"AlarmInfo", "alrm", &Rows::AlarmInfo},
    {"Mode", "mode", &Rows::Mode},
    {"PowerLevel", "pwr", &Rows::PowerLevel},
    {"BaudRate", "baud", &Rows::BaudRate},
    {"Port", "port", &Rows::Port},
    {"DeviceType", "device", &Rows::DeviceType},
    {"AlarmMask", "amask", &Rows::AlarmMask},
    {"AlarmSense", "asense", &Rows::AlarmSense},
    {"CTSdelay", "cts", &Rows::CTSdelay},
    {"CTSHOLDdelay", "ctshold", &Rows::CTSHOLDdelay},
    {"RxTimeOut", "rxtot", &Rows::RxTimeOut},
    {"RXD", "rxd", &Rows::RXD},
    {"SleepMode", "sleep", &Rows::SleepMode},
    {"LPMHOLD", "lpmhold", &Rows::LPMHOLD},
    {"NetworkAddress", "addr", &Rows::NetworkAddress},
    {"CSADDR", "csaddr", &Rows::CSADDR},
    {"HopTime", "hoptime", &Rows::HopTime},
    {"SkippedZones", "skip", &Rows::SkippedZones},
    {"LPM", "lpm", &Rows::LPM},
    {"RepeatCount", "repeat", &Rows::RepeatCount},
    {"RetryCount", "retry", &Rows::RetryCount},
    {"FEC", "fec", &Rows::FEC},
    {"DataBuff", "buff", &Rows::DataBuff},
    {"StoreAndForward", "saf", &Rows::StoreAndForward},
    {"XADDR", "xaddr", &Rows::XADDR},
    {"XMIN", "xmin", &Rows::XMIN},
    {"XMAX", "xmax", &Rows::XMAX},
    {"XPRI", "xpri", &Rows::XPRI},
    {"XRSSI", "xrssi", &Rows::XRSSI},
    {"ShowSync", "show sync", &Rows::ShowSync},
    {"DTYPE", "dtype", &Rows::DTYPE},
    {"DLINK", "dlink", &Rows::DLINK},
    {"SoftRTU", "rtu", &Rows::SoftRTU},
    {"DiagOptions", "options", &Rows::DiagOptions},
};

}  // namespace

std::span<const ShownRow> ShownRowTable() { return rows; }

}  // namespace quillmark::attack
