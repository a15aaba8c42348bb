// The attack: every operation against every fault, on virtual time, at places that the seeds pick.
// Prints each failure with the command line that repeats it, and a table of all cells.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "attack/attack_case.h"

namespace quillmark::attack {
namespace {

// One operation under one fault, for a run of seeds. A child process of its own runs it, so that a
// crash or a hang is one failed case and no more.
struct Cell {
  const Operation* What;
  const Fault* Struck;
  unsigned NextSeed;
  int Cases = 0;
  int Failed = 0;

  std::string Name() const { return std::string(What->Name) + "/" + Struck->Name; }
};

constexpr unsigned longestCase = 60;  // real seconds, after which it is a hang
// What a child writes: a mark, a blank, and a seed or a finding.
constexpr char begun = 'B';
constexpr char ended = 'E';
constexpr char found = 'F';

void RunCell(Attack& attack, const Cell& cell, unsigned last, std::FILE* out) {
  for (unsigned seed = cell.NextSeed; seed <= last; ++seed) {
    alarm(longestCase);
    std::fprintf(out, "%c %u\n", begun, seed);
    std::fflush(out);
    for (const std::string& finding : attack.Run(*cell.What, *cell.Struck, seed)) {
      std::string line = finding;
      std::replace(line.begin(), line.end(), '\n', ' ');
      std::fprintf(out, "%c %s\n", found, line.c_str());
    }
    std::fprintf(out, "%c %u\n", ended, seed);
  }
}

// Runs the cells in child processes and counts what failed.
class Runner {
 public:
  Runner(unsigned firstSeed, unsigned lastSeed, bool keepsCopies)
      : first(firstSeed), last(lastSeed), attack(keepsCopies) {}

  void Add(const Operation& operation, const Fault& fault) {
    if (fault.NeedsFile && *operation.Target == '\0') return;
    cells.push_back({&operation, &fault, first});
  }

  void Run(int jobs) {
    std::size_t next = 0;
    while (next < cells.size() || !running.empty()) {
      while (next < cells.size() && running.size() < static_cast<std::size_t>(jobs)) {
        StartChild(cells[next++]);
      }
      AwaitChild();
    }
  }

  int Failed() const { return failed; }
  bool Empty() const { return cells.empty(); }

  // A row for each operation, a column for each fault.
  void PrintTable() const {
    std::printf("\nCases that failed, \".\" for none:\n");
    const Operation* row = nullptr;
    int cases = 0;
    int badCells = 0;
    for (const Cell& cell : cells) {
      if (cell.What != row) std::printf("\n%-16s", (row = cell.What)->Name);
      cases += cell.Cases;
      if (cell.Failed > 0) ++badCells;
      std::printf(cell.Failed > 0 ? " %s:%d" : " .", cell.Struck->Name, cell.Failed);
    }
    std::printf("\n\n%zu cells, %d of them with failures; %d cases, %d failed\n", cells.size(),
                badCells, cases, failed);
  }

 private:
  // A child process and the file that it writes its report into.
  struct Child {
    Cell* Of;
    std::FILE* Out;
  };

  void StartChild(Cell& cell) {
    attack.Measure(*cell.What);
    std::FILE* out = std::tmpfile();
    std::fflush(nullptr);
    const pid_t pid = fork();
    if (pid == 0) {
      RunCell(attack, cell, last, out);
      std::fflush(out);
      _exit(0);
    }
    running[pid] = {&cell, out};
  }

  void AwaitChild() {
    int status = 0;
    const pid_t pid = wait(&status);
    const Child child = running.at(pid);
    running.erase(pid);
    const bool whole = TakeReport(child, status);
    std::fclose(child.Out);
    if (!whole && child.Of->NextSeed <= last) StartChild(*child.Of);
  }

  // False when the child ended in the middle of a case.
  bool TakeReport(const Child& child, int status) {
    std::rewind(child.Out);
    char text[4096];
    unsigned open = 0;
    Findings findings;
    while (std::fgets(text, sizeof text, child.Out) != nullptr) {
      std::string line = text;
      if (line.ends_with('\n')) line.pop_back();
      if (line.front() == found) findings.push_back(line.substr(2));
      if (line.front() == begun) open = static_cast<unsigned>(std::stoul(line.substr(2)));
      if (line.front() == ended) Close(*child.Of, std::exchange(open, 0), findings);
    }
    if (open == 0) return true;
    const bool hung = WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM;
    findings.push_back(hung ? "it hangs" : "it crashes, status " + std::to_string(status));
    Close(*child.Of, open, findings);
    return false;
  }

  void Close(Cell& cell, unsigned seed, Findings& findings) {
    cell.NextSeed = seed + 1;
    ++cell.Cases;
    if (!findings.empty()) {
      ++cell.Failed;
      ++failed;
      std::printf("FAILED ./dev attack --only %s --seeds %u:%u\n", cell.Name().c_str(), seed, seed);
      for (const std::string& finding : findings) std::printf("    %s\n", finding.c_str());
      std::fflush(stdout);
    }
    findings.clear();
  }

  unsigned first;
  unsigned last;
  Attack attack;
  std::vector<Cell> cells;
  std::map<pid_t, Child> running;
  int failed = 0;
};

// "save", "save/noise" or "/noise".
bool Wanted(const std::vector<std::string>& only, const Operation& operation, const Fault& fault) {
  return only.empty() || std::any_of(only.begin(), only.end(), [&](const std::string& name) {
           const std::size_t slash = name.find('/');
           const std::string what = name.substr(0, slash);
           const std::string struck = slash == std::string::npos ? "" : name.substr(slash + 1);
           return (what.empty() || what == operation.Name) &&
                  (struck.empty() || struck == fault.Name);
         });
}

int Main(int argc, char** argv) {
  CLI::App app("Every operation of the console against every fault of line, radio and user");
  std::string seeds = "100";
  std::vector<std::string> only;
  int jobs = 2;
  bool history = false;
  app.add_option("--seeds", seeds, "N, or FIRST:LAST")->capture_default_str();
  app.add_option("--only", only, "OPERATION, OPERATION/FAULT or /FAULT");
  app.add_option("--jobs", jobs, "so many processes")->capture_default_str();
  app.add_flag("--history", history, "the console keeps copies of what radios hold");
  CLI11_PARSE(app, argc, argv);
  const std::size_t colon = seeds.find(':');
  const bool range = colon != std::string::npos;
  const auto first = range ? static_cast<unsigned>(std::stoul(seeds.substr(0, colon))) : 1U;
  const auto last = static_cast<unsigned>(std::stoul(range ? seeds.substr(colon + 1) : seeds));
  Runner runner(first, last, history);
  for (const Operation& operation : Operations()) {
    for (const Fault& fault : Faults()) {
      if (Wanted(only, operation, fault)) runner.Add(operation, fault);
    }
  }
  if (runner.Empty()) {
    std::cerr << "There is no such cell\n";
    return 2;
  }
  runner.Run(jobs);
  runner.PrintTable();
  return runner.Failed() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace quillmark::attack

int main(int argc, char** argv) {
  ::testing::GTEST_FLAG(catch_exceptions) = false;
  return quillmark::attack::Main(argc, argv);
}
