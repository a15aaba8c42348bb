#pragma once

#include <cstddef>
#include <deque>
#include <string>

#include "app/frmOrvalent.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/shape.h"
#include "controls/timer.h"
#include "conversation/conversation.h"
#include "diagnostics/polled_link.h"
#include "diagnostics/zone_replies.h"
#include "platform/platform.h"

namespace quillmark {

// What the two windows have in common that poll the radio's zones: a frame with bars on a scale for
// each zone, the menu entry that stops and starts the polling, the two timers, and the list of
// skipped zones, which is asked for once, at the start. A radio that answers slowly is given more
// time by resetTimer.
class ZoneWindow : public Form {
 public:
  ZoneWindow(std::string name, Platform& platform, frmOrvalent& main, Conversation& radio,
             int pollInterval);  // ms

  static constexpr std::size_t MarkCount = 11;  // of each scale
  static constexpr double Baseline = 4455;      // twips, where the bars stand
  static constexpr double FullHeight = 3615;    // twips, of a bar at the scale's top

  // By zone, from 0.
  std::deque<Frame> frameZone;
  std::deque<Shape> shadowBox;  // behind the bars, as high as the scale
  // By zone * MarkCount + mark, from the bottom.
  std::deque<Label> labelZone;
  std::deque<Shape> ZoneMarkerLine;

  MenuItem mnuToggleZoneUpdates, mnuExitScreen;
  Timer pollTimer, resetTimer;

 protected:
  // A control for each zone, in its frame: name_0 to name_7.
  template <class Kind, class... Text>
  void AddToZones(std::deque<Kind>& controls, const std::string& name, const Text&... text) {
    for (std::size_t i = 0; i < ZoneCount; ++i) {
      controls.emplace_back(*this, &frameZone[i], name + "_" + std::to_string(i), text...);
    }
  }
  static void SetBar(Shape& bar, double height);  // twips

  // Primes RxBuffer and asks for the skipped zones.
  void AskForSkippedZones();
  // Takes the reply to that and empties RxBuffer; false when it does not stand where it should.
  bool ParseSkippedZones();
  // Told of each zone, from 1, that the reply lists.
  virtual void SkippedZoneListed(std::size_t) {}

  bool Updating() const { return pollTimer.Enabled() || resetTimer.Enabled(); }
  void StopTimers();
  void StopUpdates();
  // Whether the menu offers to stop the updates.
  bool UpdatesWanted() const;
  // Drops what came and could not be read. Where that was a reply without its echo, it switches the
  // echo on again first, and asks once more for the skipped zones if they were the reply; may
  // deliver events meanwhile.
  void DropReply();
  // Gives a reply that is not understood yet the time of resetTimer.
  void WaitForMore();
  void Send(const std::string& command) { link.Send(command); }

  Platform& platform;
  frmOrvalent& main;
  Conversation& radio;
  PolledLink link;

 private:
  void AddScales();
  void mnuToggleZoneUpdates_Click();
};

}  // namespace quillmark
