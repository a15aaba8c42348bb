#pragma once

#include <array>
#include <cstdint>
#include <deque>

#include "diagnostics/zone_window.h"

namespace quillmark {

// How much of what the radio receives is usable, in percent zone by zone, as numbers and as bars.
// Normal averaging measures each zone by what it received itself; the filter for blocked
// frequencies by what a zone receives on average. Modal, opened by frmZoneData.
class frmZoneQuality : public ZoneWindow {
 public:
  frmZoneQuality(Platform& platform, frmOrvalent& main, Conversation& radio);

  // By zone, from 0.
  std::deque<Label> percentUsable, lblPercent;
  std::deque<Shape> usableBar;
  Menu mnuSelectFilter;
  MenuItem mnuNormalAveraging, mnuBlockedFrequencies;

 protected:
  void SkippedZoneListed(std::size_t) override { ++SkippedZoneCount; }

 private:
  using Values = std::array<std::int64_t, ZoneCount>;
  // What a zone's good packets are measured by: so many received in so many zones.
  struct Base {
    std::int64_t Received;
    int Zones;
  };

  void Form_Load();
  void pollTimer_Timer();
  void resetTimer_Timer();
  bool TakeReply();
  void TakeZoneData();
  bool ParseZoneTotals();
  void RedrawZoneQuality();
  Base AverageReceived() const;
  std::int64_t ShownPercent(std::size_t zone, const Base& base);
  void ChooseFilter(MenuItem& chosen, MenuItem& other);

  // The last values that the radio gave, by zone.
  Values RxTotals{}, RxErrors{};
  // A zone's percentage has jumped once and was not shown.
  std::array<bool, ZoneCount> HeldBack{};
  bool DropNextReply = false;  // it has been incomplete for too long
  int SkippedZoneCount = 0;
};

}  // namespace quillmark
