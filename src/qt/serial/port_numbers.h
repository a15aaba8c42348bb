#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/port_list.h"

namespace quillmark {

class IniPreferenceStore;

// A serial port that the machine has now.
struct FoundPort {
  std::string Device;      // "/dev/ttyUSB0"
  std::string Persistent;  // its name that survives replugging, "/dev/serial/by-id/...", or Device
  std::string Adapter;     // the adapter's name, or empty
  bool Usb = false;
};

// Looks at the machine; USB adapters and on-board ports in any order.
std::vector<FoundPort> FindPorts();

// The sticky numbers 1 to 16 of the machine's ports. A port seen for the first time takes the
// lowest free number, USB adapters before on-board ports, and keeps it: section "Ports" of the
// store, key "Com1" and so on, value the persistent device path. Paths put there by hand are used
// as they are. When all are taken, the number of the port absent longest (section "PortsSeen") is
// given again. The set-up window and the serial controls ask.
class PortNumbers : public PortList {
 public:
  static constexpr int Count = 16;

  // How it looks at the machine and at the program.
  struct Surroundings {
    std::function<std::vector<FoundPort>()> Find;
    std::function<bool(const std::string&)> Exists;  // whether there is such a device node
    std::function<std::int64_t()> Now;               // seconds
    std::function<bool(int)> InUse;                  // whether a control has that number open
  };

  PortNumbers(IniPreferenceStore& store, Surroundings surroundings);

  std::vector<PortDescription> Ports() override;
  bool Present(int number) override;
  // The path behind a number; empty when there is none.
  std::string DeviceOf(int number);
  // The number of a device that the user names; it is given one if it has none.
  int NumberFor(const std::string& device);

 private:
  // What is known of one number.
  struct Entry {
    std::string Path;
    std::int64_t Seen = 0;  // seconds; when it was last present
    bool Present = false;
    std::string Adapter;
  };

  void Load();
  void Look();
  Entry* Holder(const FoundPort& port);
  Entry* FreeEntry();
  void Store();

  IniPreferenceStore& store;
  Surroundings surroundings;
  std::array<Entry, Count> entries;
};

}  // namespace quillmark
