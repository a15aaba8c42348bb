#pragma once

#include <string>
#include <vector>

namespace quillmark {

// What a port's number stands for, in the list of the set-up window.
struct PortDescription {
  std::string Device;   // "/dev/ttyUSB0"; empty when the number is free
  std::string Adapter;  // the adapter's name, where the system knows one
  bool Present = false;
};

// The machine's ports by their sticky numbers.
class PortList {
 public:
  virtual ~PortList() = default;

  // The ports 1 to 16, in this order; looks at the machine anew.
  virtual std::vector<PortDescription> Ports() = 0;
  // Whether the device of port `number`, from 1, is there now. Cheap enough for once a second.
  virtual bool Present(int number) = 0;
};

}  // namespace quillmark
