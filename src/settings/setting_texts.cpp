#include "settings/setting_texts.h"

#include <array>

namespace quillmark {

namespace {

using Rows = SettingsRows;

struct SettingText {
  SettingRow SettingsRows::*Row;
  const char* Title;
  const char* Text;
  const char* TextFrom200 = nullptr;  // instead of Text, from revision 200 on
};

// Paragraphs stand one empty line apart.
#define PARAGRAPH "\r\n\r\n"

constexpr std::array<SettingText, 39> texts{{
    {&Rows::SerialNumber, "Serial Number Information",
     "The SER command displays the factory programmed serial number.It is a numeric value with a "
     "maximum of eight digits, leading 0's are assumed. The command interface is designed so that "
     "once a serial number has been entered it can not be changed."},
    {&Rows::UnitAddr, "Unit Address",
     "The UNIT command programs or displays the unit address of the radio. It uniquely identifies "
     "the radio within its network and is used chiefly for diagnostics." PARAGRAPH
     "The default is the last 4 digits of the serial number. If the unit address is re-programmed "
     "in the field, it must be five digits between 10000 and 65000."},
    {&Rows::SoftwareRev, "Software Revision Information",
     "The SREV command takes no arguments. It returns the release number, the revision and the "
     "build date of the MCU firmware." PARAGRAPH "The reply has two lines, for example:" PARAGRAPH
     "77-1234A01\r\n1.2.0  ddMmmyyyy"},
    {&Rows::OwnerName, "Owner's Name Information",
     "The Owner's Name is a user programmable area up to 30 characters. This space can be used to "
     "identify the radio's owner."},
    {&Rows::OwnerMessage, "Owner's Message Information",
     "The Owner's Message is a user programmable area up to 30 characters. This space can be used "
     "for customer information that may be unique to the radio or site."},
    {&Rows::Temperature, "Temperature Information",
     "This is the transceiver's internal temperature in degrees Celsius." PARAGRAPH
     "The radio is specified for an environment from -30 to +60 \xB0"
     "C. The reading may be "
     "several degrees above the outside temperature."},
    {&Rows::AlarmInfo, "Alarm Information",
     "The ALARM and STAT commands both report the alarm events that are active. ALARM does so in a "
     "'computer-friendly' form, STAT in a 'human friendly', interactive one." PARAGRAPH
     "ALARM gives a fixed 2-line response: an 8-digit hex alarm code, the class \"Major\" or "
     "\"Minor\", and a brief description of the alarm."},
    {&Rows::Mode, "Radio Mode",
     "The MODE command selects or displays the mode of the radio: 'M' for a master, 'R' for a "
     "remote "
     "or 'X' for an extension (used in Store & Forward mode)." PARAGRAPH
     "All units default to remotes."},
    {&Rows::BaudRate, "Data Baud Rate Information",
     "The BAUD command sets the communication speed of the DATA INTERFACE port only. It does not "
     "change the RJ-11 DIAG(NOSTICS) port. It takes two parameters, xxxxx and abc." PARAGRAPH
     "The first parameter (xxxxx) is the baud rate: 1200, 2400, 4800, 9600, 19200, 38400, 57600 or "
     "115200. At 19200 bps or less, data can be transmitted continuously without limit at any hop "
     "rate." PARAGRAPH "The second parameter (abc) is the format of a character:\r\n"
     "a = data bits (7 or 8)\r\n"
     "b = parity (N for none, O for odd, E for even)\r\n"
     "c = stop bits (1 or 2)" PARAGRAPH "The factory default is 4800 8N1."},
    {&Rows::Port, "Port",
     "The PORT command is used to select the serial port interface of the payload data port (RS232 "
     "or RS485). It is settable independently at each radio."},
    {&Rows::DeviceType, "Device Type Information",
     "The DEVICE command selects how the radio behaves at its data port. It takes 'DCE' or 'CTS "
     "KEY'; the default is DCE." PARAGRAPH
     "DCE: CTS goes high following RTS, subject to the CTS delay. The transmitter is keyed by "
     "characters that arrive at the data port. If data arrives too fast, the radio drops CTS for "
     "flow "
     "control." PARAGRAPH "CTS KEY: the radio controls another radio. RTS is ignored, and CTS is "
     "the key line to the other "
     "radio. CTS is asserted immediately after RF data is received; the data is sent out only "
     "after "
     "the CTS delay."},
    {&Rows::CTSdelay, "CTS Delay Information",
     "What the CTS output does depends on the device mode (see Device Type)." PARAGRAPH
     "DCE: CTS follows RTS after the CTS timer has run out, and drops at once when RTS drops. CTS "
     "is "
     "further dropped by flow control, when data arrives faster than it can be sent." PARAGRAPH
     "CTS KEY: CTS is the key line to another radio." PARAGRAPH
     "Program CTS delay from 0-255msec. (a value of 0 keeps CTS normally asserted)"},
    {&Rows::CTSHOLDdelay, "CTSHOLD Delay Information",
     "In DEVICE CTS KEY mode, CTSHOLD is the time for which CTS stays asserted after the last "
     "character has left on the RXD pin: 0 to 6000 ms. The default is 0." PARAGRAPH
     "In DEVICE DCE mode the value has no effect, and the display shows 'CTSHOLD n/a'."},
    {&Rows::PowerLevel, "Power Level Information",
     "The PWR command sets the output power in dBm: 20 through 30, in 1 dBm steps. The default is "
     "30 "
     "dBm (1 watt). SHOW PWR reads the output power that is measured." PARAGRAPH
     "In the USA the EIRP must not exceed +36 dBm. With a net antenna gain above 6 dBi the power "
     "must therefore be set lower."},
    {&Rows::SleepMode, "Sleep",
     "The SLEEP command (Sleep Mode Enable/Disable) is settable independently at each radio.  The "
     "SLEEP setting determines whether or not sleep mode is invoked when the sleep input pin is "
     "grounded."},
    {&Rows::AlarmMask, "Alarm Mask Information",
     "The AMASK command sets which alarm bits trigger the alarm output signal. The PWR LED flashes "
     "for all alarms, whatever the mask." PARAGRAPH
     "The hex value of the mask aligns with that of the ALARM command. The default is FFFF FFFF."},
    {&Rows::AlarmSense, "Alarm Sense",
     "This command is used to set or display the sense of the alarm output at Pin 6 of the DATA "
     "INTERFACE connector. The default for transceivers is active HI."},
    {&Rows::NetworkAddress, "Radio Network Address Information",
     "The Radio Network Address is a programmable number (1-65000) that must be common across all "
     "radios in a given network. This value helps to ensure that the receiver has acquired a valid "
     "signal from another radio in its own network."},
    {&Rows::RepeatCount, "Repeat Count",
     "The REPEAT command sets the repeat count, 0 to 10. It is settable at the master, and "
     "viewable "
     "by a synchronized remote." PARAGRAPH
     "The master retransmits payload data that many times without condition. Remotes use RETRY "
     "instead, to retransmit only as needed." PARAGRAPH
     "0 means non-redundant operation. Higher values improve the chance that a poll gets through, "
     "at "
     "the cost of latency."},
    {&Rows::RetryCount, "Retry Count",
     "The RETRY command belongs to 'robust' or 'bulletproof' operation. It sets the maximum number "
     "of "
     "re-transmissions: 0 is 'non-robust operation', and up to 10 tries are possible." PARAGRAPH
     "The value is read-only at remote radios."},
    {&Rows::FEC, "Forward Error Correction",
     "FEC (Forward Error Correction) is settable to 'ON' or 'OFF' at the master; viewable by a "
     "synchronized remote.  FEC improves sensitivity at the cost of reduced throughput."},
    {&Rows::HopTime, "Hop Time",
     "The HOPTIME command selects or displays a hop time selection (7 or 29 msec). This command is "
     "read-only at remote radios"},
    {&Rows::SkippedZones, "Skipped Zones",
     "The radio hops over eight zones of 3.2 MHz, with 128 frequencies each. The SKIP command "
     "tells "
     "which of them are left out of the hopping sequence." PARAGRAPH
     "The parameter is 'NONE', or up to four digits from 1 to 8, in any order, separated by "
     "whitespace, by commas or by nothing. The radio shows them in ascending order, separated by "
     "commas." PARAGRAPH "The value is read-only at remote radios."},
    {&Rows::DataBuff, "Data Buffering",
     "The BUFF command switches the seamless data mode 'ON' or 'OFF'. The default is "
     "'ON'." PARAGRAPH "Transmit side: messages are tagged with start and end delimiters." PARAGRAPH
     "Receive side: the radio waits for the entire message before it delivers data." PARAGRAPH
     "The value is read-only at remote radios."},
    {&Rows::RxTimeOut, "Rx. Time Out Information",
     "The RXTOT command sets the receive time-out timer. An alarm is raised when no RF data "
     "arrives "
     "for longer than its value; valid data clears the alarm." PARAGRAPH
     "The parameter is a time in minutes, 1 to 1440, or 'NONE', which disables the timer. 'NONE' "
     "is "
     "the default."},
    {&Rows::StoreAndForward, "Store & Forward",
     "Store and Forward extends the range of a network. It divides the network into a vertical "
     "hierarchy of sub-networks." PARAGRAPH "The sub-networks are connected by 'extension' radios "
     "('MODE X'). These share their time equally "
     "between the adjacent sub-networks and move the data between them."},
    {&Rows::XADDR, "Extension Address", "Select / Display extension address. <0-63>",
     "Select / Display extension address. <0-31>"},
    {&Rows::XMIN, "Minimum Extension Addresses",
     "Select / Display minimum bound for extension address values that this radio is allowed to "
     "synchronize to. <0-63>"},
    {&Rows::XMAX, "Maximum Extension Addresses",
     "Select / Display maximum bound for extension address values that this radio is allowed to "
     "synchronize to. <0-63>"},
    {&Rows::XMAP, "",
     "XMAP is a 32 bit hex entry where the least significant bit represents XADDR 0 and the most "
     "significant bit represents XADDR 31. The full 32-bit hex value represents the entire list of "
     "extensions the radio will be allowed to communicate with"},
    {&Rows::XPRI, "",
     "XPRI designates a PRIMARY XADDR (0 to 31) with which a radio will attempt to acquire and "
     "maintain synchronization."},
    {&Rows::XRSSI, "Extension",
     "If a radio is sync'd to a source other than it's primary (XPRI), then it will periodically "
     "check the RSSI level and if the RSSI level is below the XRSSI threshold (a specified level "
     "in "
     "dBm between -40 and -120) the radio will force a loss of synchronization."},
    {&Rows::ShowSync, "Show Sync",
     "SHOW SYNC is a read-only command which displays network depth plus the UNIT address and the "
     "XADDR value on the radio to which the current radio is synchronized. This field displays "
     "'NOT "
     "AVAILABLE' if the radio is not synchronized (or is a master)"},
    {&Rows::DTYPE, "DTYPE",
     "The Diagnostic Type of a radio is usually ROOT or NODE. Only one ROOT radio can exist within "
     "a "
     "network; it provides passive, non-intrusive diagnostic polling of the network." PARAGRAPH
     "The default setting for DTYPE is NODE."},
    {&Rows::DLINK, "DLINK",
     "The Diagnostic Link is ON or OFF. When it is ON, network-wide diagnostic messages pass "
     "through "
     "the RJ-11 port. It also sets the diagnostic baud rate to the PC or other radio on that "
     "connection." PARAGRAPH "The default setting for DLINK is ON at 19200 baud."},
    {&Rows::SoftRTU, "Software RTU",
     "The radio has a built-in software RTU simulator, which can be switched ON or OFF. Its "
     "address "
     "ranges from 0 to 80." PARAGRAPH
     "The simulator may stay enabled as long as the polling command string does not appear in the "
     "payload data stream."},
    {&Rows::DiagOptions, "Diagnostic Options",
     "OPTIONS is a read command. It lists each option of the radio with its status, ON or OFF."},
    {&Rows::CSADDR, "Clock Sync",
     "This specifies the Network Address of a radio designated as a Clock Sync Master. <1-65000>"},
    {&Rows::RXD, "Receive Data Holdeover Timer",
     "This is an additional delay (0-255 ms) before the first byte of data goes out on the RXD "
     "line. "
     "It is counted from the instant at which the receiver would normally be ready to output "
     "data.\r\n\r\nNOTE: Data Buffering should be set to OFF if seamless is being implemented via "
     "the RXD command."},
}};

#undef PARAGRAPH

}  // namespace

void WireSettingTexts(frmOrvalent& main, Dialogs& dialogs, const Session& session) {
  for (const SettingText& text : texts) {
    (main.*text.Row).Caption.OnClick = [&dialogs, &session, &text] {
      const bool from200 = text.TextFrom200 != nullptr && session.SoftwareRevision.AtLeast(200);
      dialogs.Message({from200 ? text.TextFrom200 : text.Text, text.Title});
    };
  }
}

}  // namespace quillmark
