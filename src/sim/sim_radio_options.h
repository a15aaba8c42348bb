#pragma once

#include <chrono>
#include <string>

#include "sim/sim_loader.h"
#include "sim/sim_time.h"

namespace quillmark::sim {

// How a simulated radio starts. Plain data; tests and the program's options fill it.
struct SimRadioOptions {
  std::string Revision = "3.2.0";
  char Mode = 'R';         // 'M', 'R' or 'X'
  std::string Password{};  // up to 4 characters; empty: none is set and everybody may change things
  bool LoggedIn = false;
  // For each line, one after the other; from the carriage return of the first to its reply.
  Time ThinkTime = std::chrono::milliseconds(5);
  // What comes while it is busy with a line is echoed when it comes to it, not as it arrives.
  bool EchoesInTurn = false;
  // Does what a line says when it answers it, so that "deco" leaves the echo on until its prompt.
  // The loader never does: an image may follow right behind PROGRAM.
  bool ActsLate = false;
  // Thinks about all lines at the same time, and echoes a line end together with the reply.
  bool Overlaps = false;
  int Baud = 19200;      // of the diagnostic port
  bool Paced = true;     // false: bytes take no time
  int PaceBaud = 0;      // paces at this rate whatever the port is set to; 0: as the port is set
  bool LowPower = true;  // the features that were bought
  bool RtuSelected = true;
  bool Synchronised = true;    // hears a master
  bool StartInLoader = false;  // and without firmware
  bool StartInSetup = false;
  std::string SerialNumber = "00123456";  // 8 digits; the last 4 are the factory unit address
  int Rssi = -97;                         // dBm
  Time RssiInterval = std::chrono::milliseconds(200);
  int ZoneTraffic = 0;  // packets a second that each zone counts
  unsigned Seed = 1;
  SimLoaderOptions Loader{};
};

// Which commands the radio takes: those of daily use, of setup mode, or of its loader.
enum class Level { Command, Setup, Loader };

}  // namespace quillmark::sim
