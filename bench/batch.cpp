// A batch on eight ports: how long it takes to program and verify the radios, against one port
// alone with as many radios as each of the eight has, and what memory the workers take.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr int portCount = 8;
constexpr int lineTime = 120'000;  // ms, the longest for a radio

// What the batch has taken.
struct Taken {
  double Seconds = 0;
  double FirstMemory = 0;  // MB; of the largest worker when each has done a radio
  double LastMemory = 0;   // and at the end
};

// Radio after radio on one port.
class Stand {
 public:
  Stand(const Surroundings& theSurroundings, int number)
      : surroundings(theSurroundings),
        link(theSurroundings.File("batch-radio-" + std::to_string(number))),
        base(number * 1000) {}

  std::string Port() const { return link.string(); }
  int Radios() const { return radios; }
  void PlugInNext() {
    radio.reset();
    radio = std::make_unique<RadioProcess>(
        surroundings, std::vector<std::string>{"--pace", "19200", "--think-ms", "5", "--mode", "M",
                                               "--link", link.string(), "--serial",
                                               std::to_string(10'000'000 + base + ++radios)});
  }

 private:
  const Surroundings& surroundings;
  const std::filesystem::path link;
  const int base;
  int radios = 0;
  std::unique_ptr<RadioProcess> radio;
};

double ResidentMemory(const std::string& process) {
  std::ifstream status("/proc/" + process + "/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == "VmRSS:" && status >> kilobytes) return kilobytes * 1024 / 1e6;
  }
  return 0;
}

double LargestWorker(const Child& batch) {
  const std::string id = std::to_string(batch.Id());
  std::ifstream children("/proc/" + id + "/task/" + id + "/children");
  double largest = 0;
  for (std::string child; children >> child;) largest = std::max(largest, ResidentMemory(child));
  return largest;
}

// "port":"..." in the line of a report.
std::string PortIn(const std::string& json) {
  const std::string before = "\"port\":\"";
  const std::size_t begin = json.find(before) + before.size();
  return json.substr(begin, json.find('"', begin) - begin);
}

void WriteFile(const std::filesystem::path& file) {
  std::ofstream(file) << "# With Firmware Version: 3.2.0\nPWR 25\nOWN ${serial}\n";
}

Taken RunBatch(const Surroundings& surroundings, int ports, int radiosEach) {
  std::map<std::string, Stand> stands;
  std::string names;
  for (int i = 0; i < ports; ++i) {
    Stand stand(surroundings, ports * 10 + i);
    names += (i == 0 ? "" : ",") + stand.Port();
    stands.emplace(stand.Port(), std::move(stand)).first->second.PlugInNext();
  }
  const auto file = surroundings.File("batch.txt");
  WriteFile(file);
  const Moment begin = Now();
  Child batch(surroundings.Program("quillmark"),
              {"--json", "--quiet", "batch", file.string(), "--ports", names, "--yes", "--report",
               surroundings.File("report-" + std::to_string(ports)).string(), "--count",
               std::to_string(ports * radiosEach)});
  Taken taken;
  for (int i = 1; i <= ports * radiosEach; ++i) {
    const std::string line = batch.Line(lineTime);
    if (line.find("\"result\":\"done\"") == std::string::npos) {
      throw std::runtime_error("a radio was not programmed: " + line);
    }
    if (i == ports) taken.FirstMemory = LargestWorker(batch);
    taken.LastMemory = i < ports * radiosEach ? LargestWorker(batch) : taken.LastMemory;
    Stand& stand = stands.at(PortIn(line));
    if (stand.Radios() < radiosEach) stand.PlugInNext();
  }
  taken.Seconds = SecondsBetween(begin, Now());
  batch.Rest(lineTime);
  return taken;
}

}  // namespace

std::vector<Figure> MeasureBatch(Surroundings& surroundings) {
  const int each = surroundings.BatchRadios;
  const Taken alone = RunBatch(surroundings, 1, each);
  const Taken together = RunBatch(surroundings, portCount, each);
  const std::string note = std::to_string(each) + " radios a port, at 19200 baud; " +
                           std::to_string(portCount) + " ports";
  return {{.Name = "batch on eight ports",
           .In = seconds,
           .Measured = together.Seconds,
           .Floor = alone.Seconds,
           .FloorName = "one port alone",
           .By = Judged::Ratio,
           .Limit = 1.05,
           .Note = note},
          {.Name = "memory of a worker, last radio",
           .In = megabytes,
           .Measured = together.LastMemory,
           .Floor = together.FirstMemory,
           .FloorName = "first radio",
           .By = Judged::Ratio,
           .Limit = 1.05}};
}

}  // namespace quillmark::bench
