#pragma once

#include <sys/types.h>

#include <list>
#include <optional>
#include <string>
#include <vector>

#include "cli/batch/batch_options.h"
#include "cli/batch/batch_report.h"
#include "cli/command.h"

namespace quillmark {

// A batch: one worker process a port, and the report, which it alone writes. The first signal lets
// the radios that are under way come to their end; a second one cuts them.
class BatchRun {
 public:
  // Throws Failure when the report can't be used.
  BatchRun(Workbench& bench, const BatchOptions& batch);
  ~BatchRun();
  BatchRun(const BatchRun&) = delete;
  BatchRun& operator=(const BatchRun&) = delete;

  // Throws Failure unless all radios are done.
  Exit Run();

 private:
  struct Worker {
    std::string Port;
    pid_t Process = -1;
    int Socket = -1;
    std::string Received{};  // of a line that is not whole
    std::optional<BatchLine> Underway{};
    bool Ended = false;  // it has been told to end
  };

  void Start(const std::string& port);
  [[noreturn]] void BeWorker(const std::string& port, int socket) const;
  void Wait();
  // False at its end.
  bool TakeFrom(Worker& worker);
  void Take(Worker& worker, const std::vector<std::string>& message);
  void Answer(Worker& worker, const BatchLine& found);
  void TakeResult(Worker& worker, const BatchLine& line);
  void TakeEnd(Worker& worker);
  void Signalled();
  void EndIdle();
  void EndAll();
  std::size_t Underway() const;
  Exit Outcome() const;
  void Tell(const std::string& sentence) const;

  Workbench& bench;
  const BatchOptions& batch;
  BatchReport report;
  int signalHandle;
  std::list<Worker> workers;
  std::size_t radios;  // that count for --count
  std::vector<std::string> results;
  int interrupts = 0;
  std::optional<Failure> trouble;  // with the report
};

}  // namespace quillmark
