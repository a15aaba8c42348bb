#include "diagnostics/zone_window.h"

#include <utility>

#include "text/text.h"

namespace quillmark {

namespace {

constexpr const char* stopCaption = "&Stop Zone Updates";
constexpr const char* startCaption = "&Start Zone Updates";
constexpr int graceTime = 500;  // ms

std::string ZoneName(std::size_t zone) { return "Zone " + std::to_string(zone); }

}  // namespace

ZoneWindow::ZoneWindow(std::string name, Platform& machine, frmOrvalent& window, Conversation& talk,
                       int pollInterval)
    : Form(std::move(name)),
      mnuToggleZoneUpdates(*this, this, "mnuToggleZoneUpdates", stopCaption),
      mnuExitScreen(*this, this, "mnuExitScreen", "&Exit Screen"),
      pollTimer(*this, "pollTimer", machine.Events, pollInterval, true),
      resetTimer(*this, "resetTimer", machine.Events, graceTime, false),
      platform(machine),
      main(window),
      radio(talk),
      link(machine, window, talk) {
  for (std::size_t i = 0; i < ZoneCount; ++i) {
    frameZone.emplace_back(*this, this, "frameZone_" + std::to_string(i), ZoneName(i + 1));
  }
  AddScales();
  link.OnLost = [this] { StopUpdates(); };
  mnuToggleZoneUpdates.OnClick = [this] { mnuToggleZoneUpdates_Click(); };
  mnuExitScreen.OnClick = [this] { Unload(); };
}

void ZoneWindow::AddScales() {
  AddToZones(shadowBox, "shadowBox");
  for (Shape& box : shadowBox) SetBar(box, FullHeight);
  for (std::size_t i = 0; i < ZoneCount * MarkCount; ++i) {
    Frame& frame = frameZone[i / MarkCount];
    const std::string index = std::to_string(i);
    labelZone.emplace_back(*this, &frame, "labelZone_" + index);
    ZoneMarkerLine.emplace_back(*this, &frame, "ZoneMarkerLine_" + index);
    const auto mark = static_cast<double>(i % MarkCount);
    ZoneMarkerLine.back().Top = Baseline - FullHeight * mark / (MarkCount - 1);
  }
}

void ZoneWindow::SetBar(Shape& bar, double height) {
  bar.Height = height;
  bar.Top = Baseline - height;
}

void ZoneWindow::AskForSkippedZones() {
  radio.Prime();
  Send("skip");
}

bool ZoneWindow::ParseSkippedZones() {
  const auto zones = SkippedZones(radio.Received());
  if (!zones) return false;
  for (const std::size_t zone : *zones) {
    frameZone[zone - 1].Text = ZoneName(zone) + " (skipped)";
    SkippedZoneListed(zone);
  }
  radio.Clear();
  return true;
}

// Without its echo no reply is as long as it should be, so none would ever be shown.
void ZoneWindow::DropReply() {
  const Reply reply = FindReply(radio.Received(), {.Command = "", .Echo = false});
  const bool echoIsOff = reply.Came == Reply::State::Whole;
  const bool listsSkipped = Holds(reply.Text, "SKIP");
  if (echoIsOff && link.Open()) {
    radio.Settle();
    radio.SwitchEcho(true);
  }
  radio.Clear();
  // The user may have stopped or closed it meanwhile.
  if (echoIsOff && listsSkipped && Updating() && Loaded()) AskForSkippedZones();
}

void ZoneWindow::StopTimers() {
  pollTimer.Enabled = false;
  resetTimer.Enabled = false;
}

void ZoneWindow::StopUpdates() {
  StopTimers();
  mnuToggleZoneUpdates.Text = startCaption;
}

bool ZoneWindow::UpdatesWanted() const { return mnuToggleZoneUpdates.Text() == stopCaption; }

void ZoneWindow::WaitForMore() {
  resetTimer.Enabled = true;
  pollTimer.Enabled = false;
}

void ZoneWindow::mnuToggleZoneUpdates_Click() {
  if (Updating()) {
    StopUpdates();
    return;
  }
  link.AskedByUser();
  radio.Clear();
  pollTimer.Enabled = true;
  mnuToggleZoneUpdates.Text = stopCaption;
}

}  // namespace quillmark
