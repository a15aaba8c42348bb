#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>

#include "diagnostics/zone_window.h"

namespace quillmark {

// The packets that the radio has transmitted, received, and received with errors, zone by zone, as
// numbers and as bars on a scale that grows and shrinks by powers of ten. Modal, opened by
// ButtonZoneData; sends nothing when it is closed.
class frmZoneData : public ZoneWindow {
 public:
  frmZoneData(Platform& platform, frmOrvalent& main, Conversation& radio);

  // By zone, from 0.
  std::deque<Label> lblTx, zoneTXCount, lblZoneRx, zoneRXCount, lblZoneErrors, zoneErrorsCount;
  std::deque<Shape> zoneTXBar, zoneRXBar, zoneErrorsBar;
  MenuItem mnuShowZoneQuality, mnuResetZoneData;

 protected:
  void Form_Unload() override;

 private:
  using Values = std::array<std::int64_t, ZoneCount>;
  // One of the three counters of a zone: where it is shown, and its last values.
  struct Counter {
    std::deque<Label> frmZoneData::*Shown;
    std::deque<Shape> frmZoneData::*Bar;
    Values frmZoneData::*Previous;
  };
  // In the order in which they stand in the radio's reply.
  static const std::array<Counter, 3> counters;

  void AddCounters();
  void Form_Load();
  void Form_GotFocus();
  void pollTimer_Timer();
  bool TakeReply();
  bool ParseZoneCounters();
  void TakeCounter(const Counter& counter, std::size_t zone, std::int64_t value);
  void RedrawZoneBars();
  void SetScale(std::int64_t step);
  void mnuResetZoneData_Click();
  void mnuShowZoneQuality_Click();

  // The last value that the radio gave for each zone.
  Values PreviousTx{}, PreviousRx{}, PreviousErrors{};
  std::int64_t scaleStep = 0;  // from one mark to the next
  std::weak_ptr<Form> quality;
};

}  // namespace quillmark
