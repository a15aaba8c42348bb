#include "radio/view_rules.h"

#include <array>

#include "text/text.h"

namespace quillmark {

namespace {

using Row = SettingRow SettingsRows::*;

struct Shown {
  double Threshold;
  Row What;
  bool AtOrAbove;  // shown there, hidden below; false: the other way round
};

constexpr std::array shownRows{
    Shown{200, &SettingsRows::XMIN, false},   Shown{200, &SettingsRows::XMAX, false},
    Shown{200, &SettingsRows::XMAP, true},    Shown{200, &SettingsRows::XPRI, true},
    Shown{200, &SettingsRows::XRSSI, true},   Shown{200, &SettingsRows::DTYPE, true},
    Shown{200, &SettingsRows::DLINK, true},   Shown{200, &SettingsRows::SoftRTU, true},
    Shown{300, &SettingsRows::RXD, true},     Shown{300, &SettingsRows::CSADDR, true},
    Shown{320, &SettingsRows::LPMHOLD, true}, Shown{320, &SettingsRows::LPM, true},
};

struct Moved {
  double Threshold;
  Row What;
  double TopBelow;  // twips
  double TopAtOrAbove;
};

constexpr std::array movedRows{
    Moved{200, &SettingsRows::DiagOptions, 360, 1680},
    Moved{200, &SettingsRows::ShowSync, 1800, 2160},
    Moved{300, &SettingsRows::HopTime, 720, 1080},
    Moved{300, &SettingsRows::SkippedZones, 1080, 1440},
    Moved{300, &SettingsRows::SleepMode, 1440, 1800},
};

constexpr std::array<Row, 8> masterRows{
    &SettingsRows::RetryCount,   &SettingsRows::RepeatCount, &SettingsRows::HopTime,
    &SettingsRows::SkippedZones, &SettingsRows::DataBuff,    &SettingsRows::StoreAndForward,
    &SettingsRows::FEC,          &SettingsRows::LPM,
};

}  // namespace

void ApplyRevisionRules(frmOrvalent& main, const Revision& revision) {
  for (const Shown& row : shownRows) {
    (main.*row.What).Show(revision.AtLeast(row.Threshold) == row.AtOrAbove);
  }
  for (const Moved& row : movedRows) {
    (main.*row.What).MoveTo(revision.AtLeast(row.Threshold) ? row.TopAtOrAbove : row.TopBelow);
  }
}

void ApplyModeRules(frmOrvalent& main, bool inSetupMode) {
  const bool master = EqualAnyCase(main.Mode.Text(), "MODE M");
  main.ButtonRSSI.Enabled = !master || inSetupMode;
  for (const Row row : masterRows) (main.*row).AllowClick(master);
  // On a master the revision alone tells whether there is a clock sync address.
  main.CSADDR.AllowClick(master && main.CSADDR.Visible());
  main.SleepMode.AllowClick(!master);
  main.XADDR.AllowClick(!EqualAnyCase(main.Mode.Text(), "MODE R"));
}

}  // namespace quillmark
