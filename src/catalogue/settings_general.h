#pragma once

#include "catalogue/setting.h"

// What the radio is: the rows beside the tabs.
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting GeneralSettings[] = {
    {
        .Id = SettingId::SerialNumber,
        .Name = "SerialNumber",
        .Word = "ser",
        .Reply = "SN",
        .View =
            {
                .Label = "SnumLabel",
                .Caption = "Serial Number",
                .On = Tab::General,
                .Top = 360,
            },
        .Read = SettingRead{},
        .Manual =
            SettingManual{
                .Title = "Serial Number Information",
                .Text = "The SER command displays the factory programmed serial number.It is a "
                        "numeric value with a maximum of eight digits, leading 0's are assumed. "
                        "The command interface is designed so that once a serial number has been "
                        "entered it can not be changed.",
            },
    },
    {
        .Id = SettingId::UnitAddr,
        .Name = "UnitAddr",
        .Word = "unit",
        .Reply = "UNIT",
        .Value =
            {
                .Form = ValueForm::Unit,
                .Least = 10000,
                .Most = 65000,
                .Digits = 4,
            },
        .View =
            {
                .Label = "UnitLabel",
                .Caption = "Unit Address",
                .Tip = "Click to program the unit address",
                .On = Tab::General,
                .Top = 720,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Unit Address",
                .Prompt = "Enter the Unit Address:\r\r  10000 to 65000",
                .Strips = "UNIT ",
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "UnitCheck",
                .Caption = "Restore Unit Address",
                .Top = 360,
            },
        .Manual =
            SettingManual{
                .Title = "Unit Address",
                .Text =
                    "The UNIT command programs or displays the unit address of the radio. It "
                    "uniquely identifies the radio within its network and is used chiefly for "
                    "diagnostics.\r\n\r\n"
                    "The default is the last 4 digits of the serial number. If the unit address is "
                    "re-programmed in the field, it must be five digits between 10000 and 65000.",
            },
    },
    {
        .Id = SettingId::SoftwareRev,
        .Name = "SoftwareRev",
        .Word = "srev",
        .Reply = "77-",
        .View =
            {
                .Label = "SrevLabel",
                .Caption = "Software Rev.",
                .On = Tab::General,
                .Top = 1080,
            },
        .Read =
            SettingRead{
                .ManyLines = true,
            },
        .Manual =
            SettingManual{
                .Title = "Software Revision Information",
                .Text = "The SREV command takes no arguments. It returns the release number, the "
                        "revision and the build date of the MCU firmware.\r\n\r\n"
                        "The reply has two lines, for example:\r\n\r\n"
                        "77-1234A01\r\n1.2.0  ddMmmyyyy",
            },
    },
    {
        .Id = SettingId::OwnerName,
        .Name = "OwnerName",
        .Word = "own",
        .Value =
            {
                .Form = ValueForm::Text,
                .Longest = 30,
            },
        .View =
            {
                .Label = "OwnLabel",
                .Caption = "Radio Model",
                .Tip = "Click to program the owner's name",
                .On = Tab::General,
                .Top = 1440,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .Input =
            SettingInput{
                .Title = "Program Owner's Name",
                .Prompt = "Enter a new Owner's Name up to 30 characters",
            },
        .Saved =
            SettingSaved{
                .Command = "OWN",
                .Cut = SavedCut::Owner,
            },
        .Restored =
            SettingRestored{
                .Check = "OwnCheck",
                .Caption = "Restore Owner's Name",
                .Top = 720,
                .Form = RestoreForm::Owner,
            },
        .Manual =
            SettingManual{
                .Title = "Owner's Name Information",
                .Text = "The Owner's Name is a user programmable area up to 30 characters. This "
                        "space can be used to identify the radio's owner.",
            },
    },
    {
        .Id = SettingId::OwnerMessage,
        .Name = "OwnerMessage",
        .Word = "owm",
        .Value =
            {
                .Form = ValueForm::Text,
                .Longest = 30,
            },
        .View =
            {
                .Label = "OwmLabel",
                .Caption = "Message",
                .Tip = "Click to program the owner's message",
                .On = Tab::General,
                .Top = 1800,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Owner's Message",
                .Prompt = "Enter a new Owner's Message up to 30 characters",
            },
        .Saved =
            SettingSaved{
                .Command = "OWM",
                .Cut = SavedCut::Owner,
            },
        .Restored =
            SettingRestored{
                .Check = "OwmCheck",
                .Caption = "Restore Owner's Msg.",
                .Top = 1080,
                .Form = RestoreForm::Owner,
            },
        .Manual =
            SettingManual{
                .Title = "Owner's Message Information",
                .Text = "The Owner's Message is a user programmable area up to 30 characters. This "
                        "space can be used for customer information that may be unique to the "
                        "radio or site.",
            },
    },
    {
        .Id = SettingId::Temperature,
        .Name = "Temperature",
        .Word = "temp",
        .View =
            {
                .Label = "TempLabel",
                .Caption = "Temperature",
                .On = Tab::General,
                .Top = 2520,
            },
        .Read = SettingRead{},
        .Manual =
            SettingManual{
                .Title = "Temperature Information",
                .Text = "This is the transceiver's internal temperature in degrees Celsius.\r\n\r\n"
                        "The radio is specified for an environment from -30 to +60 \xB0"
                        "C. The reading may be several degrees above the outside temperature.",
            },
    },
    {
        .Id = SettingId::AlarmInfo,
        .Name = "AlarmInfo",
        .Word = "alrm",
        .View =
            {
                .Label = "AlarmLabel",
                .Caption = "Alarms",
                .Tip = "Click to show the radio's status in the terminal",
                .On = Tab::General,
                .Top = 2160,
            },
        .Read =
            SettingRead{
                .ManyLines = true,
                .Pause = true,
            },
        .OwnClick = true,
        .Manual =
            SettingManual{
                .Title = "Alarm Information",
                .Text = "The ALARM and STAT commands both report the alarm events that are active. "
                        "ALARM does so in a 'computer-friendly' form, STAT in a 'human friendly', "
                        "interactive one.\r\n\r\n"
                        "ALARM gives a fixed 2-line response: an 8-digit hex alarm code, the class "
                        "\"Major\" or \"Minor\", and a brief description of the alarm.",
            },
    },
};

}  // namespace quillmark
