#pragma once

#include "catalogue/setting.h"

// The settings on the tab "Store and Forward Settings".
// settings.cpp joins the tables of all tabs.

namespace quillmark {

inline constexpr Setting StoreAndForwardSettings[] = {
    {
        .Id = SettingId::StoreAndForward,
        .Name = "StoreAndForward",
        .Word = "saf",
        .Reply = "SAF",
        .Value =
            {
                .Words = "ON|OFF",
                .Factory = "OFF",
            },
        .View =
            {
                .Label = "SAFLabel",
                .Caption = "Store and Forward",
                .Tip = "Click to program the store and forward mode",
                .On = Tab::StoreAndForward,
                .Top = 360,
                .Clicked = Modes::Master,
            },
        .Read = SettingRead{},
        .Switch =
            SettingSwitch{
                .Title = "Store and Forward Mode Setting",
                .Turns = "Store & Forward mode",
                .At = Modes::Master,
            },
        .Saved =
            SettingSaved{
                .MasterOnly = true,
            },
        .Restored =
            SettingRestored{
                .Check = "SAFCheck",
                .Caption = "Restore Store and Forward",
                .Follows = RestoreFollows::MasterAndTick,
                .SavedAtMasterOnly = true,
            },
        .Manual =
            SettingManual{
                .Title = "Store & Forward",
                .Text = "Store and Forward extends the range of a network. It divides the network "
                        "into a vertical hierarchy of sub-networks.\r\n\r\n"
                        "The sub-networks are connected by 'extension' radios ('MODE X'). These "
                        "share their time equally between the adjacent sub-networks and move the "
                        "data between them.",
            },
    },
    {
        .Id = SettingId::XADDR,
        .Name = "XADDR",
        .Word = "xaddr",
        .Reply = "XADDR",
        .Value =
            {
                .Least = 0,
                .Most = 31,
                .MostBelow200 = 63,
                .Factory = "0",
            },
        .View =
            {
                .Label = "XADDRLabel",
                .Caption = "Extension Address",
                .Tip = "Click to program the extension address",
                .On = Tab::StoreAndForward,
                .Top = 720,
                .Clicked = Modes::NotRemote,
            },
        .Read =
            SettingRead{
                .At = Modes::NotRemote,
            },
        .Input =
            SettingInput{
                .Title = "Program extension address",
                .Prompt = "Enter the extension address (0-63):",
                .PromptFrom200 = "Enter the extension address (0-31):",
                .Strips = "XADDR ",
                .KeepsBlank = true,
                .At = Modes::MasterOrExtension,
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "XADDRCheck",
                .Caption = "Restore Extension Address",
                .Follows = RestoreFollows::NotRemoteAtLoad,
            },
        .Manual =
            SettingManual{
                .Title = "Extension Address",
                .Text = "Select / Display extension address. <0-63>",
                .TextFrom200 = "Select / Display extension address. <0-31>",
            },
    },
    {
        .Id = SettingId::XMIN,
        .Name = "XMIN",
        .Word = "xmin",
        .Reply = "XMIN",
        .Revisions = below200,
        .Value =
            {
                .Least = 0,
                .Most = 63,
                .Factory = "0",
            },
        .View =
            {
                .Label = "XMINLabel",
                .Caption = "Min. Extension Addr.",
                .Tip = "Click to program the lowest extension address",
                .On = Tab::StoreAndForward,
                .Top = 1080,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Program Minimum Extension Addresses",
                .Prompt = "Enter the minimum bound for the extension address (0-63):",
                .Strips = "XMIN ",
                .KeepsBlank = true,
            },
        .Restored =
            SettingRestored{
                .Check = "XMINCheck",
                .Caption = "Restore XMIN",
            },
        .Manual =
            SettingManual{
                .Title = "Minimum Extension Addresses",
                .Text = "Select / Display minimum bound for extension address values that this "
                        "radio is allowed to synchronize to. <0-63>",
            },
    },
    {
        .Id = SettingId::XMAX,
        .Name = "XMAX",
        .Word = "xmax",
        .Reply = "XMAX",
        .Revisions = below200,
        .Value =
            {
                .Least = 0,
                .Most = 63,
                .Factory = "0",
            },
        .View =
            {
                .Label = "XMAXLabel",
                .Caption = "Max. Extension Addr.",
                .Tip = "Click to program the highest extension address",
                .On = Tab::StoreAndForward,
                .Top = 1440,
            },
        .Read = SettingRead{},
        .Input =
            SettingInput{
                .Title = "Maximum Extension Addresses",
                .Prompt = "Enter the maximum bound for the extension address (0-63):",
                .Strips = "XMAX ",
                .KeepsBlank = true,
            },
        .Restored =
            SettingRestored{
                .Check = "XMAXCheck",
                .Caption = "Restore XMAX",
            },
        .Manual =
            SettingManual{
                .Title = "Maximum Extension Addresses",
                .Text = "Select / Display maximum bound for extension address values that this "
                        "radio is allowed to synchronize to. <0-63>",
            },
    },
    {
        .Id = SettingId::XMAP,
        .Name = "XMAP",
        .Word = "xmap",
        .Reply = "XMAP",
        .Revisions = from200,
        .Value =
            {
                .Form = ValueForm::Map,
                .Digits = 8,
                .Factory = "00000000",
            },
        .View =
            {
                .Label = "XMAPLabel",
                .Caption = "Extension Map",
                .Tip = "Click to program the extension map",
                .Start = "Click to view/change",
                .On = Tab::StoreAndForward,
                .Top = 1800,
            },
        .OwnClick = true,
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "XMAPCheck",
                .Caption = "Restore Extension MAP",
                .Top = 1080,
                .Loaded = from100,
            },
        .Manual =
            SettingManual{
                .Title = "",
                .Text = "XMAP is a 32 bit hex entry where the least significant bit represents "
                        "XADDR 0 and the most significant bit represents XADDR 31. The full 32-bit "
                        "hex value represents the entire list of extensions the radio will be "
                        "allowed to communicate with",
            },
    },
    {
        .Id = SettingId::XPRI,
        .Name = "XPRI",
        .Word = "xpri",
        .Reply = "XPRI",
        .Revisions = from200,
        .Value =
            {
                .Least = 0,
                .Most = 31,
                .Words = "NONE",
                .Factory = "NONE",
            },
        .View =
            {
                .Label = "XPRILabel",
                .Caption = "Primary Extension Addr.",
                .Tip = "Click to program the primary extension address",
                .On = Tab::StoreAndForward,
                .Top = 1080,
            },
        .Read =
            SettingRead{
                .IfUnknown = false,
            },
        .Input =
            SettingInput{
                .Title = "Program Primary Extension Address",
                .Prompt = "Enter the address for the primary extension radio (0-31 or 'NONE'):",
                .Strips = "XPRI ",
                .KeepsBlank = true,
            },
        .Saved =
            SettingSaved{
                .Dot = false,
            },
        .Restored =
            SettingRestored{
                .Check = "XPRICheck",
                .Caption = "Restore Primary Extension Addr.",
                .Top = 1440,
                .Loaded = from100,
            },
        .Manual =
            SettingManual{
                .Title = "",
                .Text = "XPRI designates a PRIMARY XADDR (0 to 31) with which a radio will attempt "
                        "to acquire and maintain synchronization.",
            },
    },
    {
        .Id = SettingId::XRSSI,
        .Name = "XRSSI",
        .Word = "xrssi",
        .Reply = "XRSSI",
        .Revisions = from200,
        .Value =
            {
                .Least = -120,
                .Most = -40,
                .CountsIn = "dBm",
                .Factory = "-120",
            },
        .View =
            {
                .Label = "XRSSILabel",
                .Caption = "Extension RSSI",
                .Tip = "Click to program the extension RSSI",
                .On = Tab::StoreAndForward,
                .Top = 1440,
            },
        .Read =
            SettingRead{
                .IfUnknown = false,
            },
        .Input =
            SettingInput{
                .Title = "Program Minimum RSSI",
                .Prompt = "Enter the minimum tolerance value for the extension radio's RSSI (-120 "
                          "-- -40):",
                .Strips = "XRSSI ",
                .KeepsBlank = true,
                .Way = InputWay::Negative,
            },
        .Saved = SettingSaved{},
        .Restored =
            SettingRestored{
                .Check = "XRSSICheck",
                .Caption = "Restore Extension RSSI",
                .Top = 1800,
                .Loaded = from100,
            },
        .Manual =
            SettingManual{
                .Title = "Extension",
                .Text = "If a radio is sync'd to a source other than it's primary (XPRI), then it "
                        "will periodically check the RSSI level and if the RSSI level is below the "
                        "XRSSI threshold (a specified level in dBm between -40 and -120) the radio "
                        "will force a loss of synchronization.",
            },
    },
    {
        .Id = SettingId::ShowSync,
        .Name = "ShowSync",
        .Word = "show sync",
        .View =
            {
                .Label = "ShowSyncLabel",
                .Caption = "Show Sync",
                .Tip = "Click to read the synchronisation again",
                .On = Tab::StoreAndForward,
                .Top = 2160,
                .Threshold = 200,
                .TopBelow = 1800,
            },
        .Read =
            SettingRead{
                .Pause = true,
            },
        .OwnClick = true,
        .Manual =
            SettingManual{
                .Title = "Show Sync",
                .Text = "SHOW SYNC is a read-only command which displays network depth plus the "
                        "UNIT address and the XADDR value on the radio to which the current radio "
                        "is synchronized. This field displays 'NOT AVAILABLE' if the radio is not "
                        "synchronized (or is a master)",
            },
    },
};

}  // namespace quillmark
