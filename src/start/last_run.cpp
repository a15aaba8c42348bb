#include "start/last_run.h"

#include <algorithm>
#include <utility>

#include "catalogue/same_value.h"

namespace quillmark {

LastRun::LastRun(Platform& machine, frmOrvalent& mainWindow) : platform(machine), main(mainWindow) {
  main.Sent.OnForgotten = [this] { Drop(); };
  main.Sent.ShownNow = [this](SettingId id) {
    const SettingRow& row = main.At(id);
    const bool isValue =
        !row.Stale() && !IsNoValue(row.Text()) && row.Text() != row.What.View.Start;
    return isValue ? row.Text() : "";
  };
}

LastRun::~LastRun() {
  main.Sent.OnForgotten = nullptr;
  main.Sent.ShownNow = nullptr;
}

bool LastRun::IsOtherRadio() const {
  return !serial.empty() && main.At(SettingId::SerialNumber).Text() != serial;
}

std::string LastRun::ValueOf(SettingId id) const {
  const SettingRow& row = main.At(id);
  return row.CameLast && row.Shown() ? row.Text() : "";
}

void LastRun::ReadDone() {
  const auto came = [](const SettingRow& row) { return row.CameLast; };
  if (main.Sent.All().empty() || std::ranges::none_of(main.Rows, came)) return;
  if (IsOtherRadio()) {
    main.Sent.Forget();
    return;
  }
  judged = true;
  serial = ValueOf(SettingId::SerialNumber);
  const auto settings = JudgeSettings(main.Sent, [this](SettingId id) { return ValueOf(id); });
  if (settings.empty()) return;
  Tell(SentenceOf(settings), settings);
  for (SettingRow& row : main.Rows) {
    const auto of = std::ranges::find(settings, &row.What, &JudgedSetting::What);
    row.Mark = of == settings.end() ? "" : MarkOf(*of);
  }
}

void LastRun::LinkEnded(bool letGo) {
  main.ShowRefusesChanges(false);
  if (main.Sent.All().empty()) return;
  if (judged) {
    main.Sent.Forget();
    return;
  }
  const std::string& last = main.At(SettingId::SerialNumber).Text();
  serial = IsNoValue(last) ? "" : last;
  Tell(SentenceSoFar(main.Sent, letGo), JudgeSettings(main.Sent, [](SettingId) { return ""; }));
}

void LastRun::Tell(std::string text, const std::vector<JudgedSetting>& settings) {
  sentence = std::move(text);
  table = TableOf(settings);
  main.LastRun.Tell(sentence, [this] { ShowTable(); });
}

void LastRun::ShowTable() {
  if (const auto shown = window.lock()) shown->Unload();
  const auto shown = std::make_shared<frmSentSettings>(sentence, table);
  window = shown;
  platform.Windows.Show(shown);
}

void LastRun::Drop() {
  judged = false;
  serial.clear();
  main.LastRun.Drop();
  for (SettingRow& row : main.Rows) row.Mark = "";
}

}  // namespace quillmark
