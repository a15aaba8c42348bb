#pragma once

#include "catalogue/setting.h"

// The settings on the tab "Radio Settings 2".
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting Radio2Settings[] = {
    {
        .Id = SettingId::CTSdelay,
        .Name = "CTSdelay",
        .Word = "cts",
        .Reply = "CTS",
        .Value =
            {
                .Least = 0,
                .Most = 255,
                .CountsIn = "ms",
                .Factory = "0",
            },
        .View =
            {
                .Label = "CTSDelayLabel",
                .Caption = "CTS Delay",
                .Tip = "Click to program the CTS delay",
                .On = Tab::Radio2,
                .Top = 360,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program CTS Delay",
                .Prompt = "Enter a new CTS delay from 0-255 msec:",
                .Strips = "CTS ",
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "CTSDelayCheck",
                .Caption = "Restore CTS Delay",
            },
        .Manual =
            SettingManual{
                .Title = "CTS Delay Information",
                .Text =
                    "What the CTS output does depends on the device mode (see Device Type).\r\n\r\n"
                    "DCE: CTS follows RTS after the CTS timer has run out, and drops at once when "
                    "RTS drops. CTS is further dropped by flow control, when data arrives faster "
                    "than it can be sent.\r\n\r\n"
                    "CTS KEY: CTS is the key line to another radio.\r\n\r\n"
                    "Program CTS delay from 0-255msec. (a value of 0 keeps CTS normally asserted)",
            },
    },
    {
        .Id = SettingId::CTSHOLDdelay,
        .Name = "CTSHOLDdelay",
        .Word = "ctshold",
        .Reply = "CTSHOLD",
        .Value =
            {
                .Least = 0,
                .Most = 6000,
                .CountsIn = "ms",
                .Factory = "0",
            },
        .View =
            {
                .Label = "CTSHoldLabel",
                .Caption = "CTSHOLD Delay",
                .Tip = "Click to program the CTSHOLD delay",
                .On = Tab::Radio2,
                .Top = 720,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program CTSHOLD Delay",
                .Prompt =
                    "Program CTS holdover delay from 0-6000msec. for DEVICE = CTS KEY operation:",
                .Strips = "CTSHOLD ",
            },
        .Saved =
            SettingSaved{
                .NotWith = "n/a",
            },
        .Restored =
            SettingRestored{
                .Check = "CTSHoldCheck",
                .Caption = "Restore CTSHOLD Delay",
            },
        .Manual =
            SettingManual{
                .Title = "CTSHOLD Delay Information",
                .Text = "In DEVICE CTS KEY mode, CTSHOLD is the time for which CTS stays asserted "
                        "after the last character has left on the RXD pin: 0 to 6000 ms. The "
                        "default is 0.\r\n\r\n"
                        "In DEVICE DCE mode the value has no effect, and the display shows "
                        "'CTSHOLD n/a'.",
            },
    },
    {
        .Id = SettingId::RxTimeOut,
        .Name = "RxTimeOut",
        .Word = "rxtot",
        .Reply = "RXTOT",
        .Value =
            {
                .Least = 1,
                .Most = 1440,
                .CountsIn = "minutes",
                .Words = "NONE",
                .Factory = "NONE",
            },
        .View =
            {
                .Label = "RxtoLabel",
                .Caption = "Receive Time Out Timer",
                .Tip = "Click to program the receive time-out timer",
                .On = Tab::Radio2,
                .Top = 1080,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .Input =
            SettingInput{
                .Title = "Program Receive Timeout Timer",
                .Prompt = "Program  Receive Timeout timer in minutes; 1-1440 or NONE",
                .Strips = "RXTOT ",
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "RxtoCheck",
                .Caption = "Restore Rx. Time Out Timer",
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Rx. Time Out Information",
                .Text = "The RXTOT command sets the receive time-out timer. An alarm is raised "
                        "when no RF data arrives for longer than its value; valid data clears the "
                        "alarm.\r\n\r\n"
                        "The parameter is a time in minutes, 1 to 1440, or 'NONE', which disables "
                        "the timer. 'NONE' is the default.",
            },
    },
    {
        .Id = SettingId::RXD,
        .Name = "RXD",
        .Word = "rxd",
        .Reply = "RXD",
        .Revisions = from300,
        .Value =
            {
                .Least = 0,
                .Most = 255,
                .CountsIn = "ms",
                .Factory = "0",
            },
        .View =
            {
                .Label = "RXDLabel",
                .Caption = "Receive Data Holdover",
                .Tip = "Click to program the receive data holdover",
                .On = Tab::Radio2,
                .Top = 1440,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Receive Data Holdover Timer",
                .Prompt = "Enter the value of the Receive Data Holdover timer (in milliseconds) to "
                          "use for this radio (0 -- 255):",
                .Strips = "RXD ",
                .KeepsBlank = true,
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "RXDCheck",
                .Caption = "Restore Rx. Data Holdover",
            },
        .Manual =
            SettingManual{
                .Title = "Receive Data Holdeover Timer",
                .Text = "This is an additional delay (0-255 ms) before the first byte of data goes "
                        "out on the RXD line. It is counted from the instant at which the receiver "
                        "would normally be ready to output data.\r\n\r\n"
                        "NOTE: Data Buffering should be set to OFF if seamless is being "
                        "implemented via the RXD command.",
            },
    },
    {
        .Id = SettingId::SleepMode,
        .Name = "SleepMode",
        .Word = "sleep",
        .Reply = "SLEEP",
        .Value =
            {
                .Words = "ON|OFF",
                .Factory = "OFF",
            },
        .View =
            {
                .Label = "SleepLabel",
                .Caption = "Sleep Mode",
                .Tip = "Click to program the sleep mode",
                .On = Tab::Radio2,
                .Top = 1800,
                .Threshold = 300,
                .TopBelow = 1440,
                .Clicked = Modes::NotMaster,
            },
        .Read = SettingRead{},
        .Switch =
            SettingSwitch{
                .Title = "Sleep Mode Setting",
                .Turns = "Sleep mode",
                .At = Modes::NotMaster,
            },
        .Saved =
            SettingSaved{
                .NotWith = "n/a",
            },
        .Restored =
            SettingRestored{
                .Check = "SleepCheck",
                .Caption = "Restore Sleep Mode",
                .Follows = RestoreFollows::NotMaster,
            },
        .Manual =
            SettingManual{
                .Title = "Sleep",
                .Text = "The SLEEP command (Sleep Mode Enable/Disable) is settable independently "
                        "at each radio.  The SLEEP setting determines whether or not sleep mode is "
                        "invoked when the sleep input pin is grounded.",
            },
    },
    {
        .Id = SettingId::LPMHOLD,
        .Name = "LPMHOLD",
        .Word = "lpmhold",
        .Reply = "LPMHOLD",
        .Revisions = from320,
        .Value =
            {
                .Least = 0,
                .Most = 1000,
                .CountsIn = "ms",
                .Factory = "0",
            },
        .View =
            {
                .Label = "LPMHOLDLabel",
                .Caption = "Low Power Mode HOLD",
                .Tip = "Click to program the low power mode holdover",
                .On = Tab::Radio2,
                .Top = 2160,
            },
        .Read =
            SettingRead{
                .Refusal = "SELECTED OPTION",
                .Pause = true,
            },
        .Input =
            SettingInput{
                .Title = "Program Low Power Mode Holdover Timer",
                .Prompt = "Enter the value of the Low Power Mode Holdover timer (in milliseconds) "
                          "to use for this radio (0 -- 1000):",
                .Strips = "LPMHOLD ",
                .KeepsBlank = true,
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "LPMHOLDCheck",
                .Caption = "Restore Low Power Mode HOLD",
            },
    },
};

}  // namespace quillmark
