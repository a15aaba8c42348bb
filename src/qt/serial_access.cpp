#include "qt/serial_access.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <vector>

namespace quillmark {

namespace {

std::string GroupName(gid_t group) {
  std::vector<char> space(16384);
  struct group entry {};
  struct group* found = nullptr;
  getgrgid_r(group, &entry, space.data(), space.size(), &found);
  return found != nullptr ? found->gr_name : std::to_string(group);
}

std::string UserName() {
  std::vector<char> space(16384);
  struct passwd entry {};
  struct passwd* found = nullptr;
  getpwuid_r(geteuid(), &entry, space.data(), space.size(), &found);
  return found != nullptr ? found->pw_name : "$USER";
}

PortTrouble Missing(const std::string& device) {
  return {"The device " + device + " is not there.",
          "There is no device " + device +
              ". Plug in the serial adapter, or choose another port under \"Serial Port\", "
              "\"Setup...\"."};
}

PortTrouble NotSerial(const std::string& device) {
  return {device + " is not a serial device.",
          device +
              " is not a serial device. Choose another port under \"Serial Port\", \"Setup...\", "
              "or correct the entry in the section \"Ports\" of the preferences file."};
}

PortTrouble Forbidden(const std::string& device, const struct stat& node) {
  const std::string group = GroupName(node.st_gid);
  std::string details = "You may not use " + device + ". ";
  if ((node.st_mode & S_IRGRP) != 0 && (node.st_mode & S_IWGRP) != 0) {
    details += "It belongs to the group \"" + group + "\". Add yourself to that group with\n\n" +
               "sudo usermod -aG " + group + " " + UserName() +
               "\n\nand then log out and in again.";
  } else {
    details += "Its owner has not opened it to a group (\"" + group +
               "\"). Ask the administrator of this computer for access.";
  }
  return {"You have no right to use " + device + ".", details};
}

// The program that left a lock file for the device; empty when there is none.
std::string LockHolder(const std::string& device) {
  std::string name = RealDevice(device);
  if (name.starts_with("/dev/")) name = name.substr(5);
  for (char& letter : name) letter = letter == '/' ? '_' : letter;
  for (const char* folder : {"/var/lock", "/run/lock", "/var/spool/locks", "/var/spool/uucp"}) {
    std::ifstream lock(std::string(folder) + "/LCK.." + name);
    long process = 0;
    if (!(lock >> process)) continue;
    std::ifstream about("/proc/" + std::to_string(process) + "/comm");
    std::string program;
    std::getline(about, program);
    if (!program.empty()) return program + " (process " + std::to_string(process) + ")";
  }
  return {};
}

}  // namespace

bool DeviceExists(const std::string& device) {
  struct stat node {};
  return stat(device.c_str(), &node) == 0 && S_ISCHR(node.st_mode);
}

std::string RealDevice(const std::string& device) {
  std::error_code failure;
  const auto real = std::filesystem::canonical(device, failure);
  return failure ? device : real.string();
}

PortTrouble NoDevice(int number) {
  const std::string port = "Com" + std::to_string(number);
  return {"No device stands behind " + port + ".",
          "No device stands behind " + port +
              ". Plug in the serial adapter, or choose another port under \"Serial Port\", "
              "\"Setup...\"."};
}

std::optional<PortTrouble> TroubleBeforeOpening(const std::string& device) {
  struct stat node {};
  if (stat(device.c_str(), &node) != 0) {
    if (errno == EACCES) {
      return PortTrouble{"You have no right to use " + device + ".",
                         "A folder on the way to " + device +
                             " is closed to you. Ask the administrator of this computer for "
                             "access."};
    }
    return Missing(device);
  }
  if (!S_ISCHR(node.st_mode)) return NotSerial(device);
  if (faccessat(AT_FDCWD, device.c_str(), R_OK | W_OK, AT_EACCESS) != 0) {
    return Forbidden(device, node);
  }
  return std::nullopt;
}

PortTrouble Busy(const std::string& device) {
  const std::string holder = LockHolder(device);
  return {device + " is in use by another program.",
          (holder.empty() ? "Another program is using " + device + ". "
                          : "The program " + holder + " is using " + device + ". ") +
              "It may be a second console, or a terminal program. Close it and connect again."};
}

PortTrouble Unusable(const std::string& device, const std::string& reason) {
  return {device + " cannot be used.",
          device + " is there and free, but it does not work as a serial port (" + reason +
              "). Unplug the adapter and plug it in again, or choose another port under \"Serial "
              "Port\", \"Setup...\"."};
}

PortTrouble Hanging(const std::string& device) {
  return {
      device + " does not answer.",
      device + " did not answer in time. Unplug the adapter, plug it in again and connect again."};
}

}  // namespace quillmark
