#include "cli/batch/port_worker.h"

#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <utility>

#include "cli/batch/batch_files.h"
#include "cli/batch/batch_line.h"
#include "cli/batch/device_mark.h"
#include "cli/line_input.h"
#include "cli/programming_run.h"
#include "cli/settings_table.h"
#include "cli/utf8.h"
#include "config/judged_lines.h"
#include "history/copy_names.h"
#include "text/text.h"

namespace quillmark {

namespace {

// The parent has gone.
struct ParentGone {};

// A configuration in memory that can be read by its path, as long as the object lives: what was
// filled in may be secret.
class LinesInMemory {
 public:
  explicit LinesInMemory(const std::vector<std::string>& lines)
      : handle(memfd_create("configuration", MFD_CLOEXEC)) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    const ssize_t count = write(handle, text.data(), text.size());
    if (count == static_cast<ssize_t>(text.size())) return;
    close(handle);
    throw Failure{Exit::BadFile, "There is not enough memory for the configuration."};
  }
  ~LinesInMemory() { close(handle); }
  LinesInMemory(const LinesInMemory&) = delete;
  LinesInMemory& operator=(const LinesInMemory&) = delete;

  std::filesystem::path Path() const { return "/proc/self/fd/" + std::to_string(handle); }

 private:
  int handle;
};

std::string TimeText(std::int64_t utcSeconds) {
  const auto seconds = static_cast<std::time_t>(utcSeconds);
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::array<char, sizeof "2026-11-23T18:40:02Z"> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text.data();
}

// The unit number, if it is one that may name a file.
std::string PlainValue(const Setting& setting, const std::string& reply) {
  const std::string value = ValueIn(setting, reply).value_or("");
  const bool plain = value.size() <= 20 && std::ranges::all_of(value, [](char c) {
                       return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
                     });
  return plain ? value : "";
}

const char* ResultOf(Exit code) {
  switch (code) {
    case Exit::Denied:
      return ResultDenied;
    case Exit::Incomplete:
      return ResultIncomplete;
    case Exit::Usage:
    case Exit::BadFile:
      return ResultBadInput;
    default:
      return ResultFailed;
  }
}

class PortWorker {
 public:
  PortWorker(const GlobalOptions& theOptions, const BatchOptions& theBatch)
      : options(theOptions), batch(theBatch), files(theBatch.Source, theBatch.Table) {}

  [[noreturn]] void Serve() {
    for (;;) {
      AwaitDevice();
      ServeRadio();
    }
  }

 private:
  void Send(const std::vector<std::string>& fields) const {
    const std::string line = CsvLine(fields) + "\n";
    for (std::size_t at = 0; at < line.size();) {
      const ssize_t count = send(batch.Worker, line.data() + at, line.size() - at, MSG_NOSIGNAL);
      if (count <= 0) throw ParentGone{};
      at += static_cast<std::size_t>(count);
    }
  }
  void Send(const char* word, const BatchLine& line) const {
    std::vector<std::string> fields = FieldsOf(line);
    fields.insert(fields.begin(), word);
    Send(fields);
  }
  // Not the same again and again.
  void Say(const std::string& sentence) {
    if (std::exchange(said, sentence) != sentence) Send({WorkerSays, sentence});
  }

  // The parent says nothing now: what can be read is its end.
  void Rest(int milliseconds) const {
    pollfd parent{batch.Worker, POLLIN, 0};
    if (poll(&parent, 1, milliseconds) > 0) throw ParentGone{};
  }
  void AwaitDevice();
  void ServeRadio();
  std::string SerialOf(CliConsole& radio) const;
  void Handle(Workbench& bench, const std::string& serial);
  bool MayGo(Workbench& bench, const BatchLine& line);
  void Program(Workbench& bench, BatchLine& line) const;
  void TakeOutcome(CliConsole& radio, const std::vector<JudgedSetting>& judged,
                   BatchLine& line) const;
  void Judge(Workbench& bench, const std::vector<std::string>& lines) const;
  void Watch(Workbench& bench, const std::string& serial) const;

  const GlobalOptions& options;
  const BatchOptions& batch;
  const BatchFiles files;
  std::string device;
  std::optional<DeviceMark> mark;  // of the device that is served now
  std::optional<DeviceMark> handledAt;
  std::string handled;  // the serial number of the last radio, at that device
  std::string said;
};

void PortWorker::AwaitDevice() {
  if (device.empty()) {
    CliMachine machine(options);
    device = machine.DeviceOf(options.Port);
  }
  constexpr int lookAgain = 300;  // ms
  while (!(mark = MarkOf(device))) {
    handledAt.reset();
    Say(options.Port + ": waiting for the device.");
    Rest(lookAgain);
  }
}

void PortWorker::ServeRadio() {
  Workbench bench(options);
  try {
    CliConsole& radio = bench.Radio();
    radio.Connect();
    const std::string serial = SerialOf(radio);
    if (serial != handled || mark != handledAt) Handle(bench, serial);
    Watch(bench, serial);
  } catch (const Failure& failure) {
    if (bench.Machine().Interrupted()) throw;
    // A radio that was taken off is what is waited for.
    if (handledAt != mark) Say(options.Port + ": " + ToUtf8(OnOneRow(failure.Cause)));
    constexpr int tryAgain = 1000;  // ms
    Rest(tryAgain);
  }
}

std::string PortWorker::SerialOf(CliConsole& radio) const {
  const Setting& setting = SettingOf(SettingId::SerialNumber);
  // With its zeros in front.
  std::string serial = FolderName(radio.Ask(setting).value_or(""));
  if (!serial.empty()) return serial;
  throw Failure{Exit::NoRadio, "The radio does not tell its serial number."};
}

void PortWorker::Handle(Workbench& bench, const std::string& serial) {
  CliConsole& radio = bench.Radio();
  radio.Read();
  const Setting& unit = SettingOf(SettingId::UnitAddr);
  BatchLine line{.Port = options.Port,
                 .Serial = serial,
                 .Unit = PlainValue(unit, radio.Main().At(unit.Id).Text()),
                 .Firmware = ToUtf8(OnOneRow(radio.Logic().Shared().InstalledFirmwareVersion))};
  if (MayGo(bench, line)) {
    Program(bench, line);
    line.Time = TimeText(bench.Machine().Base.Events.UtcSeconds());
    Send(WorkerResults, line);
  }
  handled = serial;
  handledAt = mark;
  said.clear();
}

bool PortWorker::MayGo(Workbench& bench, const BatchLine& line) {
  Send(WorkerFound, line);
  const auto answer = ReadLine(bench.Machine(), batch.Worker);
  if (!answer) throw ParentGone{};
  return *answer == ParentGoes;
}

void PortWorker::Program(Workbench& bench, BatchLine& line) const {
  CliConsole& radio = bench.Radio();
  try {
    const BatchFiles::Filled filled = files.For(line.Serial, line.Unit);
    Judge(bench, filled.Lines);
    const LinesInMemory file(filled.Lines);
    bench.Machine().Boxes.Choose(file.Path());
    const RunOptions run{
        .Yes = true, .Force = batch.Force, .Unit = filled.UnitIsMeant ? "file" : ""};
    TakeOutcome(radio, Programmed(bench, run, radio.Main().cmdProgramFromFile, filled.Lines), line);
  } catch (const Failure& failure) {
    line.Result = ResultOf(failure.Code);
    Send({WorkerSays, options.Port + ": " + line.Serial + ": " + ToUtf8(OnOneRow(failure.Cause))});
  }
  line.Copy = radio.Logic().History().BeforeLastRun().string();
  radio.EndOverwriting();
}

void PortWorker::TakeOutcome(CliConsole& radio, const std::vector<JudgedSetting>& judged,
                             BatchLine& line) const {
  line.Result = ResultDone;
  for (const JudgedSetting& each : judged) {
    if (each.Came == Outcome::Taken) continue;
    line.Refused += (line.Refused.empty() ? "" : " ") + ToUtf8(OnOneRow(each.Name));
    if (each.Came == Outcome::NotSent) line.Result = ResultIncomplete;
    if (line.Result == ResultDone) line.Result = ResultRefused;
  }
  const Setting& unit = SettingOf(SettingId::UnitAddr);
  line.Unit = PlainValue(unit, radio.Main().At(unit.Id).Text());
}

// Nobody looks at a plan: what radios are not known to take is not sent. The value stays untold.
void PortWorker::Judge(Workbench& bench, const std::vector<std::string>& lines) const {
  CliConsole& radio = bench.Radio();
  if (batch.Force) return;
  for (const JudgedLine& line :
       JudgeLines(lines, radio.Logic().Shared().SoftwareRevision, radio.Main().ModeText())) {
    const std::string& about = line.What.About;
    throw Failure{Exit::BadFile, "Line " + std::to_string(line.Number) + ", " +
                                     about.substr(0, about.find(' ')) + ": " + line.What.Wrong +
                                     "."};
  }
}

// The radio is asked now and then, so that another one at the same adapter is noticed.
void PortWorker::Watch(Workbench& bench, const std::string& serial) const {
  CliMachine& machine = bench.Machine();
  const Setting& setting = SettingOf(SettingId::SerialNumber);
  for (;;) {
    machine.WaitFor([] { return false; }, Seconds(1));
    Rest(0);
    if (MarkOf(device) != mark) return;
    if (FolderName(bench.Radio().Ask(setting).value_or("")) != serial) return;
  }
}

}  // namespace

Exit ServePort(const GlobalOptions& options, const BatchOptions& batch) {
  try {
    PortWorker(options, batch).Serve();
  } catch (const ParentGone&) {
    return Exit::Interrupted;
  } catch (const Failure& failure) {
    // The parent tells what its user is to know of that.
    if (failure.Code == Exit::Interrupted) return failure.Code;
    throw;
  }
}

}  // namespace quillmark
