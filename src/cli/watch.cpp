#include "cli/watch.h"

#include <algorithm>
#include <utility>

#include "cli/json.h"
#include "history/copy_names.h"

namespace quillmark {

namespace {

constexpr Duration interval = Seconds(1);
constexpr Duration patience = Seconds(10);  // for the first line
constexpr std::size_t clockWidth = 10;

// "2026-11-23T15:04:05"
std::string TimeText(std::int64_t seconds) {
  constexpr std::size_t separators[] = {13, 16};
  std::string text = TimeName(seconds);
  text[10] = 'T';
  for (const std::size_t at : separators) text[at] = ':';
  return text;
}

std::vector<std::string> WithTime(const std::string& time, const std::vector<std::string>& others) {
  std::vector<std::string> all{time};
  all.insert(all.end(), others.begin(), others.end());
  return all;
}

}  // namespace

Watch::Watch(Workbench& itsBench, WatchForm its, bool asCsv, int itsSeconds)
    : bench(itsBench), form(std::move(its)), csv(asCsv), seconds(itsSeconds) {}

bool Watch::Over() const { return failure || silent || (seconds > 0 && rounds >= seconds); }

void Watch::Await(Duration time, const std::function<bool()>& up) {
  QtEventLoop& events = bench.Machine().Base.Events;
  while (up() && events.Now() < time) events.Wait(time - events.Now());
}

void Watch::Run(const std::function<bool()>& up,
                const std::function<std::optional<Sample>()>& take) {
  QtEventLoop& events = bench.Machine().Base.Events;
  const Duration began = events.Now();
  Duration next = began;
  while (!Over()) {
    next = std::max(next + interval, events.Now());
    Await(next, up);
    if (!up()) return;
    // An answer that is late still belongs to its second.
    time = TimeText(events.LocalSeconds());
    if (const auto sample = take()) Print(*sample);
    if (begun) ++rounds;
    silent = !begun && events.Now() - began > patience;
  }
}

void Watch::Print(const Sample& sample) {
  try {
    PrintLine(sample);
  } catch (...) {
    failure = std::current_exception();
  }
}

void Watch::PrintLine(const Sample& sample) {
  const bool first = !std::exchange(begun, true);
  if (bench.Options.Json) return bench.Out.Line(JsonOf(sample));
  if (csv) {
    if (first) bench.Out.Line(CsvLine(WithTime("time", form.Names)));
    return bench.Out.Line(CsvLine(WithTime(time, sample)));
  }
  if (first) bench.Out.Line(Columns("Time", form.Headings));
  std::vector<std::string> cells;
  for (std::size_t i = 0; i < sample.size(); ++i) {
    const std::string& value = sample[i].empty() ? "-" : sample[i];
    if (i % form.Joined == 0) cells.emplace_back();
    cells.back() += (i % form.Joined == 0 ? "" : "/") + value;
  }
  bench.Out.Line(Columns(time.substr(time.find('T') + 1), cells));
}

std::string Watch::Columns(const std::string& first, const std::vector<std::string>& cells) const {
  std::string line = first;
  std::size_t width = clockWidth;
  for (const std::string& cell : cells) {
    line.resize(std::max(line.size() + 1, width), ' ');
    line += cell;
    width += form.Width;
  }
  return line;
}

std::string Watch::JsonOf(const Sample& sample) const {
  JsonObject object;
  object.Add("version", "1").Add("time", JsonText(time));
  for (std::size_t i = 0; i < sample.size(); ++i) {
    object.Add(form.Names[i], sample[i].empty() ? "null" : sample[i]);
  }
  return object.Text();
}

Exit Watch::Finish(const std::function<void()>& act) {
  CliMachine& machine = bench.Machine();
  try {
    bench.Radio().Act(act);
  } catch (const Failure&) {
    if (!machine.Interrupted() || !begun) throw;
    machine.TakeSignal();
    return Exit::Done;
  }
  if (failure) std::rethrow_exception(failure);
  bench.Radio().CheckBoxes();
  if (silent) throw Failure{Exit::NoRadio, "The radio does not tell it."};
  if (!machine.Platform.MSComm1.PortOpen()) {
    throw Failure{Exit::NoRadio, "The link to the radio was lost."};
  }
  return Exit::Done;
}

}  // namespace quillmark
