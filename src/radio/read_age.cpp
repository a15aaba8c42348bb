#include "radio/read_age.h"

#include <utility>

#include "platform/utilities.h"

namespace quillmark {

ReadAge::ReadAge(EventLoop& loop, const SerialPort& itsPort, frmOrvalent& window)
    : events(loop), port(itsPort), main(window) {}

void ReadAge::Wire() {
  for (SettingRow& row : main.Rows) {
    if (!row.OnClick) continue;
    row.OnClick = [this, &row, act = std::move(row.OnClick)] {
      if (row.Stale() && !port.PortOpen()) Explain();
      act();
    };
  }
}

void ReadAge::ReadDone() {
  lastRead = events.LocalSeconds();
  main.LastRead.Drop();
}

void ReadAge::Connected() { TellTime(); }

void ReadAge::Disconnected() {
  // A row that was never read has nothing to grow old.
  for (SettingRow& row : main.Rows) row.Stale = row.Text() != row.What.View.Start;
  TellTime();
}

void ReadAge::TellTime() {
  if (lastRead) {
    main.LastRead.Tell("Last read " + ClockText(*lastRead));
  } else {
    main.LastRead.Drop();
  }
}

void ReadAge::Explain() {
  main.LastRead.Tell("The radio is not connected. " +
                     (lastRead ? "These values were read at " + ClockText(*lastRead) + "."
                               : std::string("These values are of a read that was not finished.")));
}

}  // namespace quillmark
