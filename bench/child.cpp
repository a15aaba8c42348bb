#include "child.h"

#include <signal.h>
#include <sys/prctl.h>

#include <stdexcept>

#include "surroundings.h"

namespace quillmark::bench {

namespace {

constexpr int longestStart = 10'000;  // ms
constexpr int longestEnd = 3'000;     // ms

}  // namespace

Child::Child(const std::filesystem::path& program, const std::vector<std::string>& arguments)
    : name(program.filename()) {
  QStringList list;
  for (const std::string& argument : arguments) list += QString::fromStdString(argument);
  process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  process.start(QString::fromStdString(program), list, QIODevice::ReadOnly);
  if (!process.waitForStarted(longestStart)) throw std::runtime_error(name + " does not start");
}

Child::~Child() {
  if (process.state() == QProcess::NotRunning) return;
  process.terminate();
  if (process.waitForFinished(longestEnd)) return;
  process.kill();
  process.waitForFinished(longestEnd);
}

std::string Child::Line(int milliseconds) {
  while (!process.canReadLine()) {
    if (!process.waitForReadyRead(milliseconds)) throw std::runtime_error(name + " is silent");
  }
  return process.readLine().trimmed().toStdString();
}

void Child::Signal(int number) {
  const auto id = static_cast<pid_t>(process.processId());
  if (id <= 0 || kill(id, number) != 0) throw std::runtime_error(name + " has ended too early");
}

std::string Child::Rest(int milliseconds) {
  const bool ended =
      process.state() == QProcess::NotRunning || process.waitForFinished(milliseconds);
  if (!ended) throw std::runtime_error(name + " does not end");
  if (process.exitStatus() != QProcess::NormalExit) throw std::runtime_error(name + " crashed");
  return process.readAll().toStdString();
}

RadioProcess::RadioProcess(const Surroundings& surroundings,
                           const std::vector<std::string>& options)
    : child(surroundings.Program("quillmark-radio"), options), device(DeviceIn(child.Line())) {}

void RadioProcess::Unplug() { child.Signal(SIGUSR1); }

std::string DeviceIn(const std::string& line) {
  const std::string begin = "radio on ";
  if (!line.starts_with(begin)) throw std::runtime_error("the simulated radio said " + line);
  return line.substr(begin.size());
}

}  // namespace quillmark::bench
