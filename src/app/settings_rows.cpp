#include "app/settings_rows.h"

namespace quillmark {

SettingRow::SettingRow(Form& form, Frame& frame, const Setting& setting)
    : ValueField(form, &frame, setting.Name, setting.View.Start),
      What(setting),
      Caption(form, &frame, setting.View.Label, setting.View.Caption) {
  MoveTo(setting.View.Top);
  ToolTip = setting.View.Tip;
  MousePointer = *setting.View.Tip == '\0' ? Pointer::NoDrop : Pointer::Arrow;
  Caption.ToolTip = "Click for more Information";
}

void SettingRow::Show(bool next) {
  Enabled = next;
  Caption.Enabled = next;
  shown = next;
  ShowOrHide();
}

void SettingRow::LeaveOut(bool out) {
  leftOut = out;
  ShowOrHide();
}

void SettingRow::ShowOrHide() {
  Visible = shown && !leftOut;
  Caption.Visible = Visible();
}

void SettingRow::ShowRead(const std::string& value) {
  Text = value;
  Stale = false;
}

void SettingRow::MoveTo(double top) {
  Top = top;
  Caption.Top = top;
}

void SettingRow::AllowClick(bool allowed) {
  Enabled = allowed;
  MousePointer = allowed ? Pointer::Arrow : Pointer::NoDrop;
}

SettingsRows::SettingsRows(Form& form, std::span<const Setting> settings)
    : Settings(settings),
      InfoFrame(form, &form, "InfoFrame", "GENERAL"),
      SettingsTab(form, &form, "SettingsTab",
                  {"Radio Settings 1", "Radio Settings 2", "Network Settings 1",
                   "Network Settings 2", "Store and Forward Settings", "Network Wide Diagnostics"}),
      NetSet{{{form, &form, "NetSet_0"},
              {form, &form, "NetSet_1"},
              {form, &form, "NetSet_2"},
              {form, &form, "NetSet_3"},
              {form, &form, "NetSet_4"},
              {form, &form, "NetSet_5"}}} {
  static_assert(FirstTab == 1 && std::tuple_size_v<decltype(NetSet)> == TabCount - FirstTab);
  for (const Setting& setting : settings) {
    const auto tab = static_cast<std::size_t>(setting.View.On);
    Rows.emplace_back(form, tab < FirstTab ? InfoFrame : NetSet.at(tab - FirstTab), setting);
  }
  SettingsTab.Visible = false;
}

}  // namespace quillmark
