#pragma once

#include "catalogue/setting.h"

// The settings on the tab "Network Settings 2".
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting Network2Settings[] = {
    {
        .Id = SettingId::RepeatCount,
        .Name = "RepeatCount",
        .Word = "repeat",
        .Reply = "REPEAT",
        .Value =
            {
                .Least = 0,
                .Most = 10,
                .Factory = "0",
            },
        .View =
            {
                .Label = "RptctLabel",
                .Caption = "Repeat Count",
                .Tip = "Click to program the repeat count",
                .On = Tab::Network2,
                .Top = 360,
                .Clicked = Modes::Master,
            },
        .Read =
            SettingRead{
                .Refusal = "PROGRAMMABLE ONLY",
            },
        .Input =
            SettingInput{
                .Title = "Program Repeat Count",
                .Prompt = "Program the repeat count for the master, 0-10:",
                .Strips = "REPEAT ",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "RptctCheck",
                .Caption = "Restore Repeat Count",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
                .MasterOnlyReply = "PROGRAMMABLE ONLY",
            },
        .Manual =
            SettingManual{
                .Title = "Repeat Count",
                .Text = "The REPEAT command sets the repeat count, 0 to 10. It is settable at the "
                        "master, and viewable by a synchronized remote.\r\n\r\n"
                        "The master retransmits payload data that many times without condition. "
                        "Remotes use RETRY instead, to retransmit only as needed.\r\n\r\n"
                        "0 means non-redundant operation. Higher values improve the chance that a "
                        "poll gets through, at the cost of latency.",
            },
    },
    {
        .Id = SettingId::RetryCount,
        .Name = "RetryCount",
        .Word = "retry",
        .Reply = "RETRY",
        .Value =
            {
                .Least = 0,
                .Most = 10,
                .Factory = "0",
            },
        .View =
            {
                .Label = "RetryLabel",
                .Caption = "Retry Count",
                .Tip = "Click to program the retry count",
                .On = Tab::Network2,
                .Top = 720,
                .Clicked = Modes::Master,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Transmission Retry Count",
                .Prompt = "Program the transmission count (for robust mode), 0-10:",
                .Strips = "RETRY ",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "RetryCheck",
                .Caption = "Restore Retry Count",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Retry Count",
                .Text = "The RETRY command belongs to 'robust' or 'bulletproof' operation. It sets "
                        "the maximum number of re-transmissions: 0 is 'non-robust operation', and "
                        "up to 10 tries are possible.\r\n\r\n"
                        "The value is read-only at remote radios.",
            },
    },
    {
        .Id = SettingId::FEC,
        .Name = "FEC",
        .Word = "fec",
        .Reply = "FEC",
        .Value =
            {
                .Words = "ON|OFF",
                .Factory = "OFF",
            },
        .View =
            {
                .Label = "FECLabel",
                .Caption = "Forward Error Correction",
                .Tip = "Click to program the forward error correction",
                .On = Tab::Network2,
                .Top = 1080,
                .Clicked = Modes::Master,
            },
        .Read = SettingRead{},
        .Switch =
            SettingSwitch{
                .Title = "Forward Error Correction Setting",
                .Turns = "Forward Error Correction",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "FECCheck",
                .Caption = "Restore Forward Error Correction",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Forward Error Correction",
                .Text = "FEC (Forward Error Correction) is settable to 'ON' or 'OFF' at the "
                        "master; viewable by a synchronized remote.  FEC improves sensitivity at "
                        "the cost of reduced throughput.",
            },
    },
    {
        .Id = SettingId::DataBuff,
        .Name = "DataBuff",
        .Word = "buff",
        .Reply = "BUFF",
        .Value =
            {
                .Words = "ON|OFF",
                .Factory = "ON",
            },
        .View =
            {
                .Label = "BuffLabel",
                .Caption = "Data Buffering",
                .Tip = "Click to program the data buffering",
                .On = Tab::Network2,
                .Top = 1440,
                .Clicked = Modes::Master,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .Switch =
            SettingSwitch{
                .Title = "Data Buffering Setting",
                .Turns = "Data Buffering",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "BuffCheck",
                .Caption = "Restore Data Buffering",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Data Buffering",
                .Text = "The BUFF command switches the seamless data mode 'ON' or 'OFF'. The "
                        "default is 'ON'.\r\n\r\n"
                        "Transmit side: messages are tagged with start and end delimiters.\r\n\r\n"
                        "Receive side: the radio waits for the entire message before it delivers "
                        "data.\r\n\r\n"
                        "The value is read-only at remote radios.",
            },
    },
};

}  // namespace quillmark
