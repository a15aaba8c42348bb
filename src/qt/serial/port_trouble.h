#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

namespace quillmark {

// Why a port cannot be opened, told apart by what the system says of the device node and of the
// locks, never by translated texts. The serial port asks before and after it tries.

// What is told to the user.
struct PortTrouble {
  std::string Text;     // one short sentence
  std::string Details;  // the cause and the cure, in full sentences
};

// Nothing stands behind the number.
PortTrouble NoDevice(int number);
// What keeps the device from being opened at all, another program's lock file included; nothing
// when it is worth a try. `device` may be a link. The device is not opened.
std::optional<PortTrouble> TroubleBeforeOpening(const std::string& device);
// Another program has it.
PortTrouble Busy(const std::string& device);
// It was there and free, and yet it failed, with the system's `reason`.
PortTrouble Unusable(const std::string& device, const std::string& reason);
// It did not answer in time.
PortTrouble Hanging(const std::string& device);

// Whether there is a device node at that path, behind links too.
bool DeviceExists(const std::string& device);

// The device node behind links; `device` itself when there is none.
std::string RealDevice(const std::string& device);

// A program's name as it was started; empty when the system does not tell.
std::string ProgramName(pid_t process);

}  // namespace quillmark
