#include "diagnostics/frmZoneQuality.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int pollInterval = 150;         // ms
constexpr std::int64_t largestStep = 10;  // percent that may show at once
constexpr std::string_view fields[] = {"RX TOTAL", "RX ERROR"};

// Why resetTimer runs.
constexpr const char* unknownData = "unknownData";
constexpr const char* incompleteZoneData = "incompleteZoneData";

}  // namespace

frmZoneQuality::frmZoneQuality(Platform& machine, frmOrvalent& window, Conversation& talk)
    : ZoneWindow("frmZoneQuality", machine, window, talk, pollInterval),
      mnuSelectFilter(*this, this, "mnuSelectFilter", "Select &Filter"),
      mnuNormalAveraging(*this, &mnuSelectFilter, "mnuNormalAveraging", "&Normal Averaging"),
      mnuBlockedFrequencies(*this, &mnuSelectFilter, "mnuBlockedFrequencies",
                            "&Blocked Frequencies") {
  Caption = "Zone Quality";
  AddToZones(percentUsable, "percentUsable", "0");
  AddToZones(lblPercent, "lblPercent", "% Usable");
  AddToZones(usableBar, "usableBar");
  for (std::size_t i = 0; i < labelZone.size(); ++i) {
    labelZone[i].Text = std::to_string(i % MarkCount * 10);
  }
  mnuNormalAveraging.Checked = true;
  pollTimer.OnTick = [this] { pollTimer_Timer(); };
  resetTimer.OnTick = [this] { resetTimer_Timer(); };
  mnuNormalAveraging.OnClick = [this] { ChooseFilter(mnuNormalAveraging, mnuBlockedFrequencies); };
  mnuBlockedFrequencies.OnClick = [this] {
    ChooseFilter(mnuBlockedFrequencies, mnuNormalAveraging);
  };
  Form_Load();
}

void frmZoneQuality::Form_Load() {
  AskForSkippedZones();
  for (Shape& bar : usableBar) SetBar(bar, 0);
}

void frmZoneQuality::pollTimer_Timer() {
  const bool retry = resetTimer.Enabled() && resetTimer.Tag() == unknownData;
  if (retry) resetTimer.Enabled = false;
  if (radio.Received().empty()) {
    Send("ZONE DATA");
  } else if (TakeReply()) {
    return;
  } else if (retry) {
    DropReply();
  } else {
    resetTimer.Tag = unknownData;
    WaitForMore();
  }
}

// False for anything but what the two commands of this window and a reset bring.
bool frmZoneQuality::TakeReply() {
  const std::string_view received = radio.Received();
  if (Holds(received, "zone clear")) {
    radio.Clear();
    return true;
  }
  if (Holds(received, "SKIP")) return ParseSkippedZones();
  if (!Holds(received, "1:")) return false;
  TakeZoneData();
  return true;
}

void frmZoneQuality::resetTimer_Timer() {
  if (resetTimer.Tag() == unknownData) {
    pollTimer.Enabled = true;
  } else {
    DropNextReply = true;
  }
}

void frmZoneQuality::TakeZoneData() {
  if (DropNextReply) {
    DropReply();
    resetTimer.Enabled = false;
    DropNextReply = false;
  } else if (ZoneDataIsComplete(radio.Received()) && ParseZoneTotals()) {
    resetTimer.Enabled = false;
    RedrawZoneQuality();
  } else {
    resetTimer.Enabled = true;
    resetTimer.Tag = incompleteZoneData;
  }
}

// Empties RxBuffer when all totals could be read.
bool frmZoneQuality::ParseZoneTotals() {
  const bool whole = ReadZoneCounters(
      radio.Received(), fields,
      [this](std::size_t zone, std::size_t field, std::optional<std::int64_t> value) {
        if (value) (field == 0 ? RxTotals : RxErrors)[zone] = *value;
      });
  if (whole) radio.Clear();
  return whole;
}

// The radio skips four zones at most; a reply that lists all of them must not lead to a division by
// 0.
frmZoneQuality::Base frmZoneQuality::AverageReceived() const {
  const auto sum = std::accumulate(RxTotals.begin(), RxTotals.end(), std::int64_t{0});
  return {sum, std::max(static_cast<int>(ZoneCount) - SkippedZoneCount, 1)};
}

void frmZoneQuality::RedrawZoneQuality() {
  const Base average = AverageReceived();
  for (std::size_t zone = 0; zone < ZoneCount; ++zone) {
    const Base own{RxTotals[zone], 1};
    const std::int64_t shown = ShownPercent(zone, mnuNormalAveraging.Checked() ? own : average);
    percentUsable[zone].Text = std::to_string(shown);
    SetBar(usableBar[zone], static_cast<double>(shown) * FullHeight / 100);
  }
}

// A jump is held back once: it may be no more than one bad reply.
std::int64_t frmZoneQuality::ShownPercent(std::size_t zone, const Base& base) {
  if (RxTotals[zone] <= 0) return 0;
  const std::int64_t good = RxTotals[zone] - RxErrors[zone];
  // Only totals below 0 could bring the base there.
  const std::int64_t percent = base.Received > 0 ? 100 * good * base.Zones / base.Received : 0;
  const auto shown = static_cast<std::int64_t>(LeadingNumber(percentUsable[zone].Text()));
  const bool jumps = percent < shown - largestStep || percent > shown + largestStep;
  HeldBack[zone] = jumps && !HeldBack[zone];
  return std::clamp<std::int64_t>(HeldBack[zone] ? shown : percent, 0, 100);
}

void frmZoneQuality::ChooseFilter(MenuItem& chosen, MenuItem& other) {
  chosen.Checked = true;
  other.Checked = false;
}

}  // namespace quillmark
