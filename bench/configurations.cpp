// Saving a master's configuration to a file, and programming a radio from it, over a line at the
// radio's own rate: how long they take, against what the line, the radio and the prescribed pauses
// take by themselves. A pause goes on while the line is busy, so of each command only the longer of
// the two counts.

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "child.h"
#include "desk.h"
#include "line_time.h"
#include "measurements.h"
#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr int baud = 19200;
constexpr int thinkTime = 5;  // ms, from the radio's having a whole command to its reply

// One click on a button that saves or programs a configuration.
struct Task {
  Moment Begin, End;
  double Floor = 0;  // s
  std::size_t Commands = 0;
  double Paused = 0;  // s
};

double SecondsOf(Duration time) { return static_cast<double>(time.count()) / 1e6; }

Task Measure(Desk& desk, Button& button) {
  std::vector<Duration> pausedBefore;
  desk.Port().OnOutput = [&] { pausedBefore.push_back(desk.Loop().Paused()); };
  desk.Port().Forget();
  Task task;
  task.Begin = Now();
  if (!button.Click()) throw std::runtime_error(button.Name() + " can't be clicked");
  task.End = Now();
  desk.Port().OnOutput = nullptr;
  pausedBefore.push_back(desk.Loop().Paused());
  const auto& exchanges = desk.Port().Exchanges();
  task.Commands = exchanges.size();
  for (std::size_t i = 0; i < exchanges.size(); ++i) {
    const double paused = SecondsOf(pausedBefore[i + 1] - pausedBefore[i]);
    task.Paused += paused;
    task.Floor += std::max(paused, LineTime(exchanges[i], baud, thinkTime));
  }
  return task;
}

Figure FigureOf(const char* name, const Task& task) {
  char note[120];
  std::snprintf(note, sizeof note, "%zu sendings; pauses of %.2f s in all", task.Commands,
                task.Paused);
  return {.Name = name,
          .In = seconds,
          .Measured = SecondsBetween(task.Begin, task.End),
          .Floor = task.Floor,
          .FloorName = "line, radio and pauses",
          .By = Judged::Ratio,
          .Limit = 1.10,
          .Note = note};
}

}  // namespace

std::vector<Figure> MeasureConfigurations(Surroundings& surroundings) {
  const RadioProcess radio(surroundings, {"--mode", "M", "--pace", std::to_string(baud),
                                          "--think-ms", std::to_string(thinkTime)});
  Desk desk(surroundings, radio.Device());
  desk.Connect();
  desk.Boxes().ChosenFile = surroundings.File("saved.txt");
  const Task saved = Measure(desk, desk.Main().cmdSaveToFile);
  desk.OnRead = [&desk] { desk.Leave(); };
  desk.ReadAgain();
  const Task programmed = Measure(desk, desk.Main().cmdProgramFromFile);
  std::ifstream file(surroundings.File("saved.txt"));
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  if (text.find("Diagnostics") == std::string::npos) {
    throw std::runtime_error("the configuration was not saved to its end");
  }
  return {FigureOf("saving to a file", saved), FigureOf("programming from it", programmed)};
}

}  // namespace quillmark::bench
