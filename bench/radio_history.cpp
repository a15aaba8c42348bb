// Opening the window of the radio history with 10,000 copies, and a search of all of them.

#include <QApplication>
#include <QWidget>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "history/frmHistory.h"
#include "history/radio_copy.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

namespace fs = std::filesystem;

constexpr int radios = 20;
constexpr int copiesOfRadio = 500;
constexpr std::int64_t firstTime = 1'750'000'000;
constexpr Duration longestSearch = Seconds(20);

// As many settings as a radio has.
RadioCopy SampleCopy(const std::string& serial, int number) {
  RadioCopy copy{.Serial = "SN " + serial,
                 .Firmware = "77-1234A01 3.2.0  01Jan2009",
                 .Reason = "read",
                 .Name = "",
                 .Lines = {"UNIT 12345", "OWN Station " + serial, "MODE M"}};
  copy.Lines.push_back("PWR " + std::to_string(20 + number % 10) + " dBm");
  for (const char* line :
       {"BAUD 4800 8N1", "PORT RS232",  "DEVICE DCE", "CTS 0",     "CTSHOLD 0",   "RXTOT NONE",
        "RXD 0",         "SLEEP OFF",   "LPMHOLD 0",  "ADDR 1000", "CSADDR NONE", "HOPTIME 7",
        "SKIP NONE",     "LPM 0",       "REPEAT 0",   "RETRY 0",   "FEC OFF",     "BUFF ON",
        "SAF OFF",       "XADDR 0",     "XMIN 0",     "XMAX 0",    "XPRI NONE",   "XRSSI -120",
        "DTYPE NODE",    "DLINK 19200", "DLINK ON",   "RTU 0",     "RTU OFF"}) {
    copy.Lines.emplace_back(line);
  }
  return copy;
}

void KeepCopies(const fs::path& folder) {
  for (int radio = 0; radio < radios; ++radio) {
    const std::string serial = std::to_string(10'000'000 + radio);
    fs::create_directories(folder / serial);
    for (int number = 0; number < copiesOfRadio; ++number) {
      const std::int64_t time = firstTime + number * 3600;
      std::ofstream(folder / serial / (TimeName(time) + ".txt"), std::ios::binary)
          << CopyText(SampleCopy(serial, number), "1/1/2026", time);
    }
  }
}

// Of every file in the folders of so many radios: the bytes alone, nothing made of them.
double PlainReading(const fs::path& folder, int ofRadios) {
  const Moment begin = Now();
  std::size_t bytes = 0;
  for (const auto& radio : fs::directory_iterator(folder)) {
    if (ofRadios-- == 0) break;
    for (const auto& file : fs::directory_iterator(radio)) {
      std::ifstream in(file.path(), std::ios::binary);
      bytes += std::string(std::istreambuf_iterator<char>(in), {}).size();
    }
  }
  if (bytes == 0) throw std::runtime_error("there are no copies");
  return SecondsBetween(begin, Now());
}

constexpr const char* floorName = "reading the bytes";

}  // namespace

std::vector<Figure> MeasureRadioHistory(Surroundings& surroundings) {
  const fs::path folder = surroundings.File("data") / "quillmark-console" / "radios";
  KeepCopies(folder);
  Desk desk(surroundings, "");
  desk.ShowMain();
  const Moment begin = Now();
  desk.Main().mnuHistory.Click();
  QApplication::processEvents();
  const Moment opened = Now();
  auto* window = static_cast<frmHistory*>(desk.Shown("frmHistory"));
  if (window == nullptr || window->tblRadios.Rows().size() != radios ||
      window->tblCopies.Rows().size() != copiesOfRadio) {
    throw std::runtime_error("the window does not show the copies");
  }
  const Moment typed = Now();
  window->txtSearch.UserEdit("nowhere");
  if (!desk.RunUntil(longestSearch, [&] { return !window->tmrRead.Enabled(); })) {
    throw std::runtime_error("the search does not end");
  }
  const Moment found = Now();
  window->Unload();
  const double floorOfOne = PlainReading(folder, 1);
  const double floorOfAll = PlainReading(folder, radios);
  fs::remove_all(folder);
  return {{.Name = "radio history, opening",
           .In = seconds,
           .Measured = SecondsBetween(begin, opened),
           .Floor = floorOfOne,
           .FloorName = floorName,
           .Limit = 0.3,
           .Note = std::to_string(radios * copiesOfRadio) + " copies of " + std::to_string(radios) +
                   " radios"},
          {.Name = "radio history, a search of all",
           .In = seconds,
           .Measured = SecondsBetween(typed, found),
           .Floor = floorOfAll,
           .FloorName = floorName,
           .Limit = 1}};
}

}  // namespace quillmark::bench
