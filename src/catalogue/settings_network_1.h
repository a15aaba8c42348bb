#pragma once

#include "catalogue/setting.h"

// The settings on the tab "Network Settings 1".
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting Network1Settings[] = {
    {
        .Id = SettingId::NetworkAddress,
        .Name = "NetworkAddress",
        .Word = "addr",
        .Reply = "ADDR",
        .Value =
            {
                .Least = 1,
                .Most = 65000,
                .Words = "NONE",
                .Factory = "NONE",
            },
        .View =
            {
                .Label = "NetAddrLabel",
                .Caption = "Network Address",
                .Tip = "Click to program the network address",
                .On = Tab::Network1,
                .Top = 360,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Network Address",
                .Prompt = "Enter a new radio Network Address:\r\r1-65000 or NONE",
                .Way = InputWay::WholeCommand,
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "NetAddrCheck",
                .Caption = "Restore Network Address",
            },
        .Manual =
            SettingManual{
                .Title = "Radio Network Address Information",
                .Text = "The Radio Network Address is a programmable number (1-65000) that must be "
                        "common across all radios in a given network. This value helps to ensure "
                        "that the receiver has acquired a valid signal from another radio in its "
                        "own network.",
            },
    },
    {
        .Id = SettingId::CSADDR,
        .Name = "CSADDR",
        .Word = "csaddr",
        .Reply = "CSADDR",
        .Revisions = from300,
        .Value =
            {
                .Least = 1,
                .Most = 65000,
                .Words = "NONE",
                .Factory = "NONE",
            },
        .View =
            {
                .Label = "CSADDRLabel",
                .Caption = "Clock Sync Address",
                .Tip = "Click to program the clock sync address",
                .On = Tab::Network1,
                .Top = 720,
                .Clicked = Modes::Master,
            },
        .Read =
            SettingRead{
                .Refusal = "n/a",
            },
        .Input =
            SettingInput{
                .Title = "Program Clock Sync Address",
                .Prompt =
                    "Enter the Network Address of the designated Clock Sync Master (1 -- 65000):",
                .Strips = "CSADDR ",
                .KeepsBlank = true,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
                .LineWithout = "CSADDR NONE",
            },
        .Restored =
            SettingRestored{
                .Check = "CSADDRCheck",
                .Caption = "Restore Clock Sync Address",
                .Read = from320,
                .Follows = RestoreFollows::Master,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Clock Sync",
                .Text = "This specifies the Network Address of a radio designated as a Clock Sync "
                        "Master. <1-65000>",
            },
    },
    {
        .Id = SettingId::HopTime,
        .Name = "HopTime",
        .Word = "hoptime",
        .Reply = "HOPTIME",
        .Value =
            {
                .CountsIn = "ms",
                .Words = "7|28|29",
                .Factory = "7",
            },
        .View =
            {
                .Label = "HopLabel",
                .Caption = "Hop Time",
                .Tip = "Click to program the hop time",
                .On = Tab::Network1,
                .Top = 1080,
                .Threshold = 300,
                .TopBelow = 720,
                .Clicked = Modes::Master,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Hop Time",
                .Prompt = "Enter the Hop Time value (7 or 28 msec):",
                .Strips = "HOPTIME ",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "HopCheck",
                .Caption = "Restore Hop Time",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Hop Time",
                .Text = "The HOPTIME command selects or displays a hop time selection (7 or 29 "
                        "msec). This command is read-only at remote radios",
            },
    },
    {
        .Id = SettingId::SkippedZones,
        .Name = "SkippedZones",
        .Word = "skip",
        .Reply = "SKIP",
        .Value =
            {
                .Form = ValueForm::Zones,
                .Least = 1,
                .Most = 8,
                .Digits = 4,
                .Words = "NONE",
                .Factory = "NONE",
            },
        .View =
            {
                .Label = "SkipLabel",
                .Caption = "Skipped Zones",
                .Tip = "Click to program the skipped zones",
                .On = Tab::Network1,
                .Top = 1440,
                .Threshold = 300,
                .TopBelow = 1080,
                .Clicked = Modes::Master,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Skipped Zones",
                .Prompt = "Enter up to four skipped zones (1-8) or type 'NONE' for no skipped "
                          "zones. (i.e. 1,2,5):",
                .Strips = "SKIP ",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "SkipCheck",
                .Caption = "Restore Skipped Zones",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Skipped Zones",
                .Text =
                    "The radio hops over eight zones of 3.2 MHz, with 128 frequencies each. The "
                    "SKIP command tells which of them are left out of the hopping sequence.\r\n\r\n"
                    "The parameter is 'NONE', or up to four digits from 1 to 8, in any order, "
                    "separated by whitespace, by commas or by nothing. The radio shows them in "
                    "ascending order, separated by commas.\r\n\r\n"
                    "The value is read-only at remote radios.",
            },
    },
    {
        .Id = SettingId::LPM,
        .Name = "LPM",
        .Word = "lpm",
        .Reply = "LPM",
        .Revisions = from320,
        .Value =
            {
                .Least = 0,
                .Most = 7,
                .Factory = "0",
            },
        .View =
            {
                .Label = "LPMLabel",
                .Caption = "Low Power Mode Setting",
                .Tip = "Click to program the low power mode",
                .On = Tab::Network1,
                .Top = 1800,
                .Clicked = Modes::Master,
            },
        .Read =
            SettingRead{
                .Refusal = "SELECTED OPTION",
                .Pause = true,
            },
        .Input =
            SettingInput{
                .Title = "Program Low Power Mode",
                .Prompt =
                    "Enter the Low Power Mode selection to use for this radio network (0 -- 7):",
                .Strips = "LPM ",
                .KeepsBlank = true,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "LPMCheck",
                .Caption = "Restore Low Power Mode",
                .Follows = RestoreFollows::Master,
                .SavedAtMasterOnly = true,
            },
    },
};

}  // namespace quillmark
