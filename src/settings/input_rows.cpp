#include "settings/input_rows.h"

#include <array>

namespace quillmark {

namespace {

using Rows = SettingsRows;
using When = InputRow::When;
using Special = InputRow::Special;

// clang-format off
constexpr std::array<InputRow, 26> inputRows{{
    {&Rows::NetworkAddress, "Program Network Address", "Enter a new radio Network Address:\r\r1-65000 or NONE", "", 0, "addr ", When::Always, Special::NetworkAddress},
    {&Rows::OwnerMessage, "Program Owner's Message", "Enter a new Owner's Message up to 30 characters", "", 0, "owm "},
    {&Rows::OwnerName, "Program Owner's Name", "Enter a new Owner's Name up to 30 characters", "", 0, "own "},
    {&Rows::PowerLevel, "Program Power Output Level", "Enter a new Power Level:\r\r20dBm through 30dBm in 1dBm steps", "PWR ", 4, "pwr "},
    {&Rows::RxTimeOut, "Program Receive Timeout Timer", "Program  Receive Timeout timer in minutes; 1-1440 or NONE", "RXTOT ", 6, "rxtot "},
    {&Rows::Mode, "Program Radio Mode", "Enter 'M' for a master, 'R' for a remote or 'X' for an extension (used in Store & Forward mode):", "MODE ", 5, "mode "},
    {&Rows::SkippedZones, "Program Skipped Zones", "Enter up to four skipped zones (1-8) or type 'NONE' for no skipped zones. (i.e. 1,2,5):", "SKIP ", 5, "skip ", When::Master},
    {&Rows::RetryCount, "Program Transmission Retry Count", "Program the transmission count (for robust mode), 0-10:", "RETRY ", 6, "retry ", When::Master},
    {&Rows::AlarmMask, "Program Alarm Mask", "Enter a new major alarm mask:\r\r(0000 0000) to (FFFF FFFF)", "MASK:", 5, "amask ", When::Always, Special::AlarmMask},
    {&Rows::AlarmSense, "Set Alarm Sense", "Enter 'HI' or 'LO' to change the sense of the alarm output signal (active high or active low):", "ALARM ACTIVE ", 13, "asense ", When::Always, Special::AlarmSense},
    {&Rows::BaudRate, "Program Data Baud Rate", "Enter a new baud rate and/or format (ie 9600 8N1):", "BAUD ", 5, "baud "},
    {&Rows::Port, "Program Payload Port", "Enter the port type to use for the payload port (RS232 or RS485):", "PORT ", 5, "port "},
    {&Rows::CTSdelay, "Program CTS Delay", "Enter a new CTS delay from 0-255 msec:", "CTS ", 4, "cts "},
    {&Rows::CTSHOLDdelay, "Program CTSHOLD Delay", "Program CTS holdover delay from 0-6000msec. for DEVICE = CTS KEY operation:", "CTSHOLD ", 8, "ctshold "},
    {&Rows::RepeatCount, "Program Repeat Count", "Program the repeat count for the master, 0-10:", "REPEAT ", 7, "repeat ", When::Master},
    {&Rows::UnitAddr, "Program Unit Address", "Enter the Unit Address:\r\r  10000 to 65000", "UNIT ", 5, "unit "},
    {&Rows::HopTime, "Program Hop Time", "Enter the Hop Time value (7 or 28 msec):", "HOPTIME ", 8, "hoptime ", When::Master},
    {&Rows::XADDR, "Program extension address", "Enter the extension address (0-63):", "XADDR ", 5, "xaddr ", When::MasterOrExtension, Special::None, "Enter the extension address (0-31):"},
    {&Rows::XMIN, "Program Minimum Extension Addresses", "Enter the minimum bound for the extension address (0-63):", "XMIN ", 4, "xmin "},
    {&Rows::XMAX, "Maximum Extension Addresses", "Enter the maximum bound for the extension address (0-63):", "XMAX ", 4, "xmax "},
    {&Rows::XPRI, "Program Primary Extension Address", "Enter the address for the primary extension radio (0-31 or 'NONE'):", "XPRI ", 4, "xpri "},
    {&Rows::XRSSI, "Program Minimum RSSI", "Enter the minimum tolerance value for the extension radio's RSSI (-120 -- -40):", "XRSSI ", 5, "xrssi ", When::Always, Special::Xrssi},
    {&Rows::LPM, "Program Low Power Mode", "Enter the Low Power Mode selection to use for this radio network (0 -- 7):", "LPM ", 3, "lpm "},
    {&Rows::LPMHOLD, "Program Low Power Mode Holdover Timer", "Enter the value of the Low Power Mode Holdover timer (in milliseconds) to use for this radio (0 -- 1000):", "LPMHOLD ", 7, "lpmhold "},
    {&Rows::CSADDR, "Program Clock Sync Address", "Enter the Network Address of the designated Clock Sync Master (1 -- 65000):", "CSADDR ", 6, "csaddr "},
    {&Rows::RXD, "Program Receive Data Holdover Timer", "Enter the value of the Receive Data Holdover timer (in milliseconds) to use for this radio (0 -- 255):", "RXD ", 3, "rxd "},
}};

constexpr std::array<OnOffRow, 4> onOffRows{{
    {&Rows::DataBuff, "Data Buffering Setting", true, "BUFF ON", "BUFF OFF", "Turn Data Buffering off?", "Turn Data Buffering on?", "buff OFF", "buff ON"},
    {&Rows::FEC, "Forward Error Correction Setting", true, "FEC ON", "FEC OFF", "Turn Forward Error Correction off?", "Turn Forward Error Correction on?", "fec OFF", "fec ON"},
    {&Rows::SleepMode, "Sleep Mode Setting", false, "SLEEP ON", "SLEEP OFF", "Turn Sleep mode off?", "Turn Sleep mode on?", "sleep OFF", "sleep ON"},
    {&Rows::StoreAndForward, "Store and Forward Mode Setting", true, "SAF ON", "SAF OFF", "Turn Store & Forward mode off?", "Turn Store & Forward mode on?", "saf OFF", "saf ON"},
}};
// clang-format on

}  // namespace

std::span<const InputRow> InputRows() { return inputRows; }
std::span<const OnOffRow> OnOffRows() { return onOffRows; }

}  // namespace quillmark
