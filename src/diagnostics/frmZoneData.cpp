#include "diagnostics/frmZoneData.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "diagnostics/frmZoneQuality.h"
#include "text/numbers.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr int firstPoll = 2000;      // ms; the reply to "skip" is there by then
constexpr int pollInterval = 50;     // ms
constexpr std::int64_t jump = 1000;  // a rise that no traffic makes between two polls
constexpr std::string_view fields[] = {"TX TOTAL", "RX TOTAL", "RX ERROR"};

std::int64_t Displayed(const Label& count) {
  return static_cast<std::int64_t>(LeadingNumber(count.Text()));
}

}  // namespace

const std::array<frmZoneData::Counter, 3> frmZoneData::counters{{
    {&frmZoneData::zoneTXCount, &frmZoneData::zoneTXBar, &frmZoneData::PreviousTx},
    {&frmZoneData::zoneRXCount, &frmZoneData::zoneRXBar, &frmZoneData::PreviousRx},
    {&frmZoneData::zoneErrorsCount, &frmZoneData::zoneErrorsBar, &frmZoneData::PreviousErrors},
}};

frmZoneData::frmZoneData(Platform& machine, frmOrvalent& window, Conversation& talk)
    : ZoneWindow("frmZoneData", machine, window, talk, firstPoll),
      mnuShowZoneQuality(*this, this, "mnuShowZoneQuality", "Show Zone &Quality"),
      mnuResetZoneData(*this, this, "mnuResetZoneData", "Reset &Zone Data") {
  Caption = "Zone Data";
  AddCounters();
  SetScale(1);
  pollTimer.OnTick = [this] { pollTimer_Timer(); };
  resetTimer.OnTick = [this] { pollTimer.Enabled = true; };
  mnuShowZoneQuality.OnClick = [this] { mnuShowZoneQuality_Click(); };
  mnuResetZoneData.OnClick = [this] { mnuResetZoneData_Click(); };
  Form_Load();
}

void frmZoneData::AddCounters() {
  AddToZones(lblTx, "lblTx", "Tx.");
  AddToZones(zoneTXCount, "zoneTXCount", "0");
  AddToZones(zoneTXBar, "zoneTXBar");
  AddToZones(lblZoneRx, "lblZoneRx", "Rx.");
  AddToZones(zoneRXCount, "zoneRXCount", "0");
  AddToZones(zoneRXBar, "zoneRXBar");
  AddToZones(lblZoneErrors, "lblZoneErrors", "Errors");
  AddToZones(zoneErrorsCount, "zoneErrorsCount", "0");
  AddToZones(zoneErrorsBar, "zoneErrorsBar");
}

void frmZoneData::Form_Load() {
  AskForSkippedZones();
  for (const Counter& counter : counters) {
    for (Shape& bar : this->*counter.Bar) SetBar(bar, 0);
  }
}

void frmZoneData::Form_Unload() {
  if (const auto window = quality.lock()) window->Unload();
}

void frmZoneData::pollTimer_Timer() {
  pollTimer.Interval = pollInterval;
  const bool retry = resetTimer.Enabled();
  resetTimer.Enabled = false;
  if (radio.Received().empty()) {
    Send("ZONE DATA");
    return;
  }
  if (!TakeReply()) {
    if (retry) {
      DropReply();
    } else {
      WaitForMore();
    }
  }
  RedrawZoneBars();
}

// False when what came is not, or not yet, a reply that can be read.
bool frmZoneData::TakeReply() {
  const std::string_view received = radio.Received();
  if (Holds(received, "zone clear")) {
    radio.Clear();
    return true;
  }
  if (Holds(received, "SKIP")) return ParseSkippedZones();
  return ZoneDataIsComplete(received) && ParseZoneCounters();
}

// Empties RxBuffer when all counters could be read.
bool frmZoneData::ParseZoneCounters() {
  const bool whole = ReadZoneCounters(
      radio.Received(), fields,
      [this](std::size_t zone, std::size_t field, std::optional<std::int64_t> value) {
        if (value) TakeCounter(counters[field], zone, *value);
      });
  if (whole) radio.Clear();
  return whole;
}

// A counter that was cleared or garbled shows as a fall or a jump: it is not shown, but counts as
// the base of the next one.
void frmZoneData::TakeCounter(const Counter& counter, std::size_t zone, std::int64_t value) {
  std::int64_t& previous = (this->*counter.Previous)[zone];
  if (value > previous && value < previous + jump) {
    (this->*counter.Shown)[zone].Text = std::to_string(value);
  }
  previous = value;
}

void frmZoneData::RedrawZoneBars() {
  std::int64_t highest = 0;
  for (const Counter& counter : counters) {
    for (const Label& count : this->*counter.Shown) highest = std::max(highest, Displayed(count));
  }
  std::int64_t top = scaleStep * static_cast<std::int64_t>(MarkCount - 1);
  while (highest > top) top *= 10;
  while (highest != 0 && 10 * highest < top) top /= 10;
  SetScale(top / static_cast<std::int64_t>(MarkCount - 1));
  for (const Counter& counter : counters) {
    for (std::size_t zone = 0; zone < ZoneCount; ++zone) {
      const auto count = static_cast<double>(Displayed((this->*counter.Shown)[zone]));
      SetBar((this->*counter.Bar)[zone], FullHeight / static_cast<double>(top) * count);
    }
  }
}

void frmZoneData::SetScale(std::int64_t step) {
  if (step == scaleStep) return;
  scaleStep = step;
  for (std::size_t i = 0; i < labelZone.size(); ++i) {
    labelZone[i].Text = std::to_string(static_cast<std::int64_t>(i % MarkCount) * step);
  }
}

void frmZoneData::mnuResetZoneData_Click() {
  SetScale(1);
  for (const Counter& counter : counters) {
    for (Label& count : this->*counter.Shown) count.Text = "0";
  }
  link.AskedByUser();
  Send("zone clear");
  RedrawZoneBars();
}

void frmZoneData::mnuShowZoneQuality_Click() {
  StopTimers();
  const auto window = std::make_shared<frmZoneQuality>(platform, main, radio);
  quality = window;
  platform.Windows.ShowModal(window, *this);
  if (Loaded()) Form_GotFocus();
}

void frmZoneData::Form_GotFocus() {
  if (UpdatesWanted() && !Updating()) pollTimer.Enabled = true;
}

}  // namespace quillmark
