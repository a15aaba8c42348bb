#pragma once

#include "catalogue/setting.h"

// The settings on the tab "Network Wide Diagnostics".
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting DiagnosticsSettings[] = {
    {
        .Id = SettingId::DTYPE,
        .Name = "DTYPE",
        .Word = "dtype",
        .Reply = "DTYPE",
        .Revisions = from200,
        .Value =
            {
                .Words = "ROOT|NODE",
                .Factory = "NODE",
            },
        .View =
            {
                .Label = "DTypeLabel",
                .Caption = "DTYPE",
                .Tip = "Click to program the diagnostic type",
                .On = Tab::Diagnostics,
                .Top = 360,
            },
        .Read = SettingRead{},
        .OwnClick = true,
        .Saved =
            SettingSaved{
                .Dot = false,
            },
        .Restored =
            SettingRestored{
                .Check = "DTYPECheck",
                .Caption = "Restore DTYPE",
                .Loaded = from100,
            },
        .Manual =
            SettingManual{
                .Title = "DTYPE",
                .Text = "The Diagnostic Type of a radio is usually ROOT or NODE. Only one ROOT "
                        "radio can exist within a network; it provides passive, non-intrusive "
                        "diagnostic polling of the network.\r\n\r\n"
                        "The default setting for DTYPE is NODE.",
            },
    },
    {
        .Id = SettingId::DLINK,
        .Name = "DLINK",
        .Word = "dlink",
        .Reply = "DLINK",
        .Revisions = from200,
        .Value =
            {
                .Form = ValueForm::Switched,
                .Words = "1200|2400|4800|9600|19200|38400|57600|115200",
                .Factory = "19200 (ON)",
            },
        .View =
            {
                .Label = "DLinkLabel",
                .Caption = "DLINK",
                .Tip = "Click to program the diagnostic link",
                .On = Tab::Diagnostics,
                .Top = 800,
            },
        .Read = SettingRead{},
        .OwnClick = true,
        .Saved =
            SettingSaved{
                .Cut = SavedCut::Dlink,
                .Dot = false,
            },
        .Restored =
            SettingRestored{
                .Check = "DLINKCheck",
                .Caption = "Restore DLINK",
                .Loaded = from100,
                .Form = RestoreForm::Switched,
            },
        .Manual =
            SettingManual{
                .Title = "DLINK",
                .Text = "The Diagnostic Link is ON or OFF. When it is ON, network-wide diagnostic "
                        "messages pass through the RJ-11 port. It also sets the diagnostic baud "
                        "rate to the PC or other radio on that connection.\r\n\r\n"
                        "The default setting for DLINK is ON at 19200 baud.",
            },
    },
    {
        .Id = SettingId::SoftRTU,
        .Name = "SoftRTU",
        .Word = "rtu",
        .Reply = "RTU",
        .Revisions = from200,
        .Value =
            {
                .Form = ValueForm::Switched,
                .Least = 0,
                .Most = 80,
                .Factory = "0 (OFF)",
            },
        .View =
            {
                .Label = "SoftRTULabel",
                .Caption = "Software RTU",
                .Tip = "Click to program the software RTU",
                .On = Tab::Diagnostics,
                .Top = 1240,
            },
        .Read = SettingRead{},
        .OwnClick = true,
        .Restored =
            SettingRestored{
                .Check = "SoftRTUCheck",
                .Caption = "Restore Software RTU",
                .Loaded = from100,
                .Form = RestoreForm::Switched,
                .NotSavedWith = "OPTION",
            },
        .Manual =
            SettingManual{
                .Title = "Software RTU",
                .Text = "The radio has a built-in software RTU simulator, which can be switched ON "
                        "or OFF. Its address ranges from 0 to 80.\r\n\r\n"
                        "The simulator may stay enabled as long as the polling command string does "
                        "not appear in the payload data stream.",
            },
    },
    {
        .Id = SettingId::DiagOptions,
        .Name = "DiagOptions",
        .Word = "options",
        .View =
            {
                .Label = "OptionsLabel",
                .Caption = "Diagnostic Options",
                .On = Tab::Diagnostics,
                .Top = 1680,
                .Threshold = 200,
                .TopBelow = 360,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .Saved =
            SettingSaved{
                .Reply = "Diagnostics",
                .Dot = false,
            },
        .Manual =
            SettingManual{
                .Title = "Diagnostic Options",
                .Text = "OPTIONS is a read command. It lists each option of the radio with its "
                        "status, ON or OFF.",
            },
    },
};

}  // namespace quillmark
