#include "cli/batch/batch_run.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>

#include "cli/batch/csv_text.h"

namespace quillmark {

namespace {

sigset_t EndingSignals() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, signal);
  return set;
}

void Send(int socket, const std::string& word) {
  const std::string line = word + "\n";
  [[maybe_unused]] const ssize_t sent = send(socket, line.data(), line.size(), MSG_NOSIGNAL);
}

}  // namespace

BatchRun::BatchRun(Workbench& theBench, const BatchOptions& theBatch)
    : bench(theBench),
      batch(theBatch),
      report(theBatch.Report, theBatch.Resume),
      radios(report.CountDone()) {
  const sigset_t set = EndingSignals();
  sigprocmask(SIG_BLOCK, &set, nullptr);
  signalHandle = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
}

BatchRun::~BatchRun() {
  EndAll();
  close(signalHandle);
  const sigset_t set = EndingSignals();
  sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

void BatchRun::Tell(const std::string& sentence) const {
  if (!bench.Options.Quiet) std::fprintf(stderr, "%s\n", sentence.c_str());
}

void BatchRun::Start(const std::string& port) {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw Failure{Exit::NoRadio, "No process could be started for the port.", " "};
  }
  const pid_t parent = getpid();
  const pid_t process = fork();
  if (process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent) _exit(static_cast<int>(Exit::Interrupted));
    BeWorker(port, ends[1]);
  }
  close(ends[1]);
  workers.push_back({.Port = port, .Process = process, .Socket = ends[0]});
}

// In a group of its own: keys at the terminal are for the parent.
void BatchRun::BeWorker(const std::string& port, int socket) const {
  setpgid(0, 0);
  const sigset_t set = EndingSignals();
  sigprocmask(SIG_UNBLOCK, &set, nullptr);
  const int kept = dup(socket);
  std::vector<std::string> words{
      "quillmark",         "--port", port, "--quiet", "batch", batch.Source.string(), "--worker",
      std::to_string(kept)};
  if (!batch.Table.empty()) words.insert(words.end(), {"--csv", batch.Table.string()});
  if (batch.Force) words.emplace_back("--force");
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  execv("/proc/self/exe", arguments.data());
  _exit(static_cast<int>(Exit::NoRadio));
}

Exit BatchRun::Run() {
  for (const std::string& port : batch.Ports) Start(port);
  while (!workers.empty()) {
    const bool enough = batch.Count > 0 && radios >= batch.Count;
    if (enough || interrupts > 0 || trouble) EndIdle();
    Wait();
  }
  return Outcome();
}

void BatchRun::Wait() {
  std::vector<pollfd> all{{signalHandle, POLLIN, 0}};
  for (const Worker& worker : workers) all.push_back({worker.Socket, POLLIN, 0});
  if (poll(all.data(), all.size(), -1) < 0) return;
  if (all.front().revents != 0) Signalled();
  auto ready = all.begin();
  for (auto worker = workers.begin(); worker != workers.end();) {
    const bool ended = (++ready)->revents != 0 && !TakeFrom(*worker);
    if (ended) TakeEnd(*worker);
    worker = ended ? workers.erase(worker) : std::next(worker);
  }
}

bool BatchRun::TakeFrom(Worker& worker) {
  std::array<char, 4096> piece{};
  const ssize_t count = recv(worker.Socket, piece.data(), piece.size(), 0);
  if (count <= 0) return false;
  worker.Received.append(piece.data(), static_cast<std::size_t>(count));
  for (std::size_t end = 0; (end = worker.Received.find('\n')) != std::string::npos;) {
    const auto rows = CsvRows(worker.Received.substr(0, end));
    worker.Received.erase(0, end + 1);
    if (!rows.empty()) Take(worker, rows.front());
  }
  return true;
}

void BatchRun::Take(Worker& worker, const std::vector<std::string>& message) {
  const std::string& word = message.front();
  if (word == WorkerSays && message.size() > 1) return Tell(message[1]);
  const BatchLine line = LineOf({message.begin() + 1, message.end()});
  if (word == WorkerFound) Answer(worker, line);
  if (word == WorkerResults) TakeResult(worker, line);
}

// One that is skipped is not among the radios of this run.
void BatchRun::Answer(Worker& worker, const BatchLine& found) {
  const bool enough = batch.Count > 0 && radios + Underway() >= batch.Count;
  if (enough || interrupts > 0 || trouble) return;
  if (batch.Resume && report.Done(found.Serial)) {
    Tell(worker.Port + ": " + found.Serial + ": done before. Next radio.");
    return Send(worker.Socket, ParentSkips);
  }
  Tell(worker.Port + ": " + found.Serial + ": programming.");
  worker.Underway = found;
  Send(worker.Socket, ParentGoes);
}

void BatchRun::TakeResult(Worker& worker, const BatchLine& line) {
  worker.Underway.reset();
  results.push_back(line.Result);
  ++radios;
  const std::string which = line.Refused.empty() ? "" : " (" + line.Refused + ")";
  Tell(worker.Port + ": " + line.Serial + ": " + line.Result + which + ". Next radio.");
  try {
    report.Append(line);
    if (bench.Options.Json) bench.Out.Line(JsonOf(line));
  } catch (const ReaderGone&) {
    // The report has it.
  } catch (const Failure& failure) {
    trouble = failure;
    // Quiet or not: this is the only place where it stands now.
    std::fprintf(stderr, "Not in the report: %s\n", CsvLine(FieldsOf(line)).c_str());
  }
}

void BatchRun::TakeEnd(Worker& worker) {
  close(worker.Socket);
  waitpid(worker.Process, nullptr, 0);
  if (!worker.Underway) return;
  BatchLine line = *worker.Underway;
  line.Result = ResultIncomplete;
  TakeResult(worker, line);
}

void BatchRun::Signalled() {
  signalfd_siginfo which{};
  if (read(signalHandle, &which, sizeof which) != sizeof which) return;
  ++interrupts;
  if (interrupts == 1 && Underway() > 0) {
    Tell("The radios under way are finished first; a second interrupt cuts them.");
  }
  if (interrupts > 1) {
    for (const Worker& worker : workers) kill(worker.Process, SIGTERM);
  }
}

void BatchRun::EndIdle() {
  for (Worker& worker : workers) {
    if (worker.Underway || worker.Ended) continue;
    worker.Ended = true;
    kill(worker.Process, SIGTERM);
  }
}

void BatchRun::EndAll() {
  for (Worker& worker : workers) {
    kill(worker.Process, SIGTERM);
    close(worker.Socket);
    waitpid(worker.Process, nullptr, 0);
  }
  workers.clear();
}

std::size_t BatchRun::Underway() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      workers, [](const Worker& worker) { return worker.Underway.has_value(); }));
}

Exit BatchRun::Outcome() const {
  const auto undone =
      results.size() - static_cast<std::size_t>(std::ranges::count(results, ResultDone));
  const bool incomplete = std::ranges::find(results, ResultIncomplete) != results.end();
  const std::string told = std::to_string(undone) + " of " + std::to_string(results.size()) +
                           (results.size() == 1 ? " radio is" : " radios are") + " not done.";
  const char* const goOn = "\"--resume\" goes on with the others.";
  if (trouble) throw *trouble;
  if (incomplete) throw Failure{Exit::Incomplete, told, goOn};
  if (interrupts > 0) throw Failure{Exit::Interrupted, "Interrupted: " + told, goOn};
  if (undone > 0) throw Failure{Exit::Different, told, goOn};
  if (batch.Count == 0 || radios < batch.Count) {
    throw Failure{Exit::NoRadio, "No port can be served any more."};
  }
  return Exit::Done;
}

}  // namespace quillmark
