#pragma once

#include "catalogue/setting.h"

// The settings on the tab "Radio Settings 1".
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting Radio1Settings[] = {
    {
        .Id = SettingId::Mode,
        .Name = "Mode",
        .Word = "mode",
        .Reply = "MODE",
        .Value =
            {
                .Words = "M|R|X",
                .Factory = "R",
            },
        .View =
            {
                .Label = "RmdLabel",
                .Caption = "Radio Mode",
                .Tip = "Click to program the radio mode",
                .On = Tab::Radio1,
                .Top = 360,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Radio Mode",
                .Prompt = "Enter 'M' for a master, 'R' for a remote or 'X' for an extension (used "
                          "in Store & Forward mode):",
                .Strips = "MODE ",
            },
        .Saved =
            SettingSaved{
                .Cut = SavedCut::SixWide,
            },
        .Restored =
            SettingRestored{
                .Check = "ModeCheck",
                .Caption = "Restore Radio Mode",
            },
        .Manual =
            SettingManual{
                .Title = "Radio Mode",
                .Text = "The MODE command selects or displays the mode of the radio: 'M' for a "
                        "master, 'R' for a remote or 'X' for an extension (used in Store & Forward "
                        "mode).\r\n\r\n"
                        "All units default to remotes.",
            },
    },
    {
        .Id = SettingId::PowerLevel,
        .Name = "PowerLevel",
        .Word = "pwr",
        .Reply = "PWR",
        .Value =
            {
                .Least = 20,
                .Most = 30,
                .Unit = "dBm",
                .Factory = "30",
            },
        .View =
            {
                .Label = "PowerLabel",
                .Caption = "Power Level",
                .Tip = "Click to program the power level",
                .On = Tab::Radio1,
                .Top = 720,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Power Output Level",
                .Prompt = "Enter a new Power Level:\r\r20dBm through 30dBm in 1dBm steps",
                .Strips = "PWR ",
            },
        .Saved =
            SettingSaved{
                .Cut = SavedCut::TenWide,
            },
        .Restored =
            SettingRestored{
                .Check = "PowerCheck",
                .Caption = "Restore Power Level",
            },
        .Manual =
            SettingManual{
                .Title = "Power Level Information",
                .Text = "The PWR command sets the output power in dBm: 20 through 30, in 1 dBm "
                        "steps. The default is 30 dBm (1 watt). SHOW PWR reads the output power "
                        "that is measured.\r\n\r\n"
                        "In the USA the EIRP must not exceed +36 dBm. With a net antenna gain "
                        "above 6 dBi the power must therefore be set lower.",
            },
    },
    {
        .Id = SettingId::BaudRate,
        .Name = "BaudRate",
        .Word = "baud",
        .Reply = "BAUD",
        .Value =
            {
                .Form = ValueForm::Rate,
                .Words = "300|600|1200|2400|4800|9600|19200|38400|57600|115200",
                .Format = "78|NOE|12",
                .Factory = "4800 8N1",
            },
        .View =
            {
                .Label = "DataBaudLabel",
                .Caption = "Data Baud Rate",
                .Tip = "Click to program the data baud rate",
                .On = Tab::Radio1,
                .Top = 1080,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Data Baud Rate",
                .Prompt = "Enter a new baud rate and/or format (ie 9600 8N1):",
                .Strips = "BAUD ",
            },
        .Saved =
            SettingSaved{
                .Dot = false,
            },
        .Restored =
            SettingRestored{
                .Check = "DataBaudCheck",
                .Caption = "Restore Data Baud Rate",
            },
        .Manual =
            SettingManual{
                .Title = "Data Baud Rate Information",
                .Text = "The BAUD command sets the communication speed of the DATA INTERFACE port "
                        "only. It does not change the RJ-11 DIAG(NOSTICS) port. It takes two "
                        "parameters, xxxxx and abc.\r\n\r\n"
                        "The first parameter (xxxxx) is the baud rate: 1200, 2400, 4800, 9600, "
                        "19200, 38400, 57600 or 115200. At 19200 bps or less, data can be "
                        "transmitted continuously without limit at any hop rate.\r\n\r\n"
                        "The second parameter (abc) is the format of a character:\r\na = data bits "
                        "(7 or 8)\r\nb = parity (N for none, O for odd, E for even)\r\nc = stop "
                        "bits (1 or 2)\r\n\r\n"
                        "The factory default is 4800 8N1.",
            },
    },
    {
        .Id = SettingId::Port,
        .Name = "Port",
        .Word = "port",
        .Reply = "PORT",
        .Value =
            {
                .Words = "RS232|RS485",
                .Factory = "RS232",
            },
        .View =
            {
                .Label = "PortLabel",
                .Caption = "Port",
                .Tip = "Click to program the port type",
                .On = Tab::Radio1,
                .Top = 1440,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .Input =
            SettingInput{
                .Title = "Program Payload Port",
                .Prompt = "Enter the port type to use for the payload port (RS232 or RS485):",
                .Strips = "PORT ",
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "PortCheck",
                .Caption = "Restore Port",
            },
        .Manual =
            SettingManual{
                .Title = "Port",
                .Text =
                    "The PORT command is used to select the serial port interface of the payload "
                    "data port (RS232 or RS485). It is settable independently at each radio.",
            },
    },
    {
        .Id = SettingId::DeviceType,
        .Name = "DeviceType",
        .Word = "device",
        .Reply = "DEVICE",
        .Value =
            {
                .Words = "DCE|CTS KEY",
                .Factory = "DCE",
            },
        .View =
            {
                .Label = "DevLabel",
                .Caption = "Device Type",
                .Tip = "Click to program the device type",
                .On = Tab::Radio1,
                .Top = 1800,
            },
        .Read = SettingRead{},
        .OwnClick = true,
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "DevCheck",
                .Caption = "Restore Device Type",
            },
        .Manual =
            SettingManual{
                .Title = "Device Type Information",
                .Text = "The DEVICE command selects how the radio behaves at its data port. It "
                        "takes 'DCE' or 'CTS KEY'; the default is DCE.\r\n\r\n"
                        "DCE: CTS goes high following RTS, subject to the CTS delay. The "
                        "transmitter is keyed by characters that arrive at the data port. If data "
                        "arrives too fast, the radio drops CTS for flow control.\r\n\r\n"
                        "CTS KEY: the radio controls another radio. RTS is ignored, and CTS is the "
                        "key line to the other radio. CTS is asserted immediately after RF data is "
                        "received; the data is sent out only after the CTS delay.",
            },
    },
    {
        .Id = SettingId::AlarmMask,
        .Name = "AlarmMask",
        .Word = "amask",
        .Reply = "MASK",
        .Value =
            {
                .Form = ValueForm::Mask,
                .Digits = 8,
                .Factory = "FFFF FFFF",
            },
        .View =
            {
                .Label = "AlarmMaskLabel",
                .Caption = "Alarm Mask",
                .Tip = "Click to program the alarm mask",
                .On = Tab::Radio1,
                .Top = 2160,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Alarm Mask",
                .Prompt = "Enter a new major alarm mask:\r\r(0000 0000) to (FFFF FFFF)",
                .Strips = "MASK:",
                .Way = InputWay::PromptAlone,
            },
        .Saved =
            SettingSaved{
                .Cut = SavedCut::AlarmMask,
                .Panel = false,
            },
        .Restored =
            SettingRestored{
                .Check = "AlarmMaskCheck",
                .Caption = "Restore Alarm Mask",
                .Form = RestoreForm::AlarmMask,
            },
        .Manual =
            SettingManual{
                .Title = "Alarm Mask Information",
                .Text = "The AMASK command sets which alarm bits trigger the alarm output signal. "
                        "The PWR LED flashes for all alarms, whatever the mask.\r\n\r\n"
                        "The hex value of the mask aligns with that of the ALARM command. The "
                        "default is FFFF FFFF.",
            },
    },
    {
        .Id = SettingId::AlarmSense,
        .Name = "AlarmSense",
        .Word = "asense",
        .Reply = "ALARM",
        .Value =
            {
                .Words = "HI|LO",
                .Factory = "HI",
            },
        .View =
            {
                .Label = "AlrsLabel",
                .Caption = "Alarm Sense",
                .Tip = "Click to program the alarm sense",
                .On = Tab::Radio1,
                .Top = 2520,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .Input =
            SettingInput{
                .Title = "Set Alarm Sense",
                .Prompt = "Enter 'HI' or 'LO' to change the sense of the alarm output signal "
                          "(active high or active low):",
                .Strips = "ALARM ACTIVE ",
                .Way = InputWay::Colon,
            },
        .Saved =
            SettingSaved{
                .Cut = SavedCut::NoColon,
            },
        .Restored =
            SettingRestored{
                .Check = "AlrsCheck",
                .Caption = "Restore Alarm Sense",
                .Key = "ALARM ACTIVE",
                .Form = RestoreForm::AlarmSense,
            },
        .Manual =
            SettingManual{
                .Title = "Alarm Sense",
                .Text =
                    "This command is used to set or display the sense of the alarm output at Pin 6 "
                    "of the DATA INTERFACE connector. The default for transceivers is active HI.",
            },
    },
};

}  // namespace quillmark
