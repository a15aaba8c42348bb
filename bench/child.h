#pragma once

#include <QProcess>
#include <filesystem>
#include <string>
#include <vector>

namespace quillmark::bench {

class Surroundings;

// A child process, which ends with this object at the latest, or with the bench, whatever ends
// that. What it prints on stderr goes to the bench's. All calls throw std::runtime_error when it
// does not do what it should.
class Child {
 public:
  Child(const std::filesystem::path& program, const std::vector<std::string>& arguments);
  ~Child();
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // The next line that it prints, without the line end.
  std::string Line(int milliseconds = 10'000);
  void Signal(int number);
  long long Id() const { return process.processId(); }
  // Waits for its own end and gives all that it has printed since.
  std::string Rest(int milliseconds);

 private:
  std::string name;
  QProcess process;
};

// The simulated radio in a process of its own.
class RadioProcess {
 public:
  RadioProcess(const Surroundings& surroundings, const std::vector<std::string>& options);

  const std::string& Device() const { return device; }
  void Unplug();

 private:
  Child child;
  std::string device;
};

// The device in the line "radio on DEVICE", which every simulated radio begins with.
std::string DeviceIn(const std::string& line);

}  // namespace quillmark::bench
