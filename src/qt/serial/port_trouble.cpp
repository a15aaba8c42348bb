#include "qt/serial/port_trouble.h"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <string_view>
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

// Groups that a system keeps for the use of devices. Membership of any other may open far more than
// a port.
constexpr const char* deviceGroups[] = {"dialout", "uucp", "tty", "plugdev", "modem", "serial"};

bool MeantForDevices(gid_t group, const std::string& name) {
  return group != 0 && std::find(std::begin(deviceGroups), std::end(deviceGroups), name) !=
                           std::end(deviceGroups);
}

PortTrouble Forbidden(const std::string& device, const struct stat& node) {
  const std::string group = GroupName(node.st_gid);
  const bool open = (node.st_mode & S_IRGRP) != 0 && (node.st_mode & S_IWGRP) != 0;
  std::string details = "You may not use " + device + ". ";
  if (open && MeantForDevices(node.st_gid, group)) {
    details += "It belongs to the group \"" + group + "\". Add yourself to that group with\n\n" +
               "sudo usermod -aG " + group + " " + UserName() +
               "\n\nand then log out and in again.";
  } else {
    details += (open ? "It belongs to the group \"" + group + "\", which is not meant for devices. "
                     : "Its owner has not opened it to a group (\"" + group + "\"). ") +
               "Ask the administrator of this computer for access.";
  }
  return {"You have no right to use " + device + ".", details};
}

// A lock file that a process has left for a device.
struct LockMark {
  std::string File;
  pid_t Process = 0;
  bool Living = false;
  bool Classic = false;  // holds one line: the process, and perhaps names behind it
};

bool Alive(pid_t process) { return kill(process, 0) == 0 || errno == EPERM; }

std::optional<LockMark> ReadLockMark(const std::string& file) {
  std::ifstream lock(file);
  long process = 0;
  if (!(lock >> process) || process <= 0 || process > std::numeric_limits<pid_t>::max()) {
    return std::nullopt;
  }
  std::string names;
  std::string more;
  std::getline(lock, names);
  const auto number = static_cast<pid_t>(process);
  return LockMark{file, number, Alive(number), !std::getline(lock, more)};
}

std::optional<LockMark> FindLockMark(const std::string& device) {
  std::string name = RealDevice(device);
  if (name.starts_with("/dev/")) name = name.substr(5);
  std::replace(name.begin(), name.end(), '/', '_');
  for (const char* folder : {"/var/lock", "/run/lock", "/var/spool/locks", "/var/spool/uucp"}) {
    if (auto mark = ReadLockMark(std::string(folder) + "/LCK.." + name)) return mark;
  }
  return std::nullopt;
}

std::string UserOf(const LockMark& mark) {
  const std::string program = ProgramName(mark.Process);
  const std::string process = std::to_string(mark.Process);
  return program.empty() ? "The process " + process
                         : "The program " + program + " (process " + process + ")";
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

std::string ProgramName(pid_t process) {
  const std::string folder = "/proc/" + std::to_string(process);
  std::error_code failure;
  std::string program = std::filesystem::read_symlink(folder + "/exe", failure).string();
  // Another user's program has no link to be read.
  if (failure) std::getline(std::ifstream(folder + "/cmdline"), program, '\0');
  constexpr std::string_view replaced = " (deleted)";
  if (program.ends_with(replaced)) program.resize(program.size() - replaced.size());
  return std::filesystem::path(program).filename().string();
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
  // The serial layer takes a lock file with nothing but a number for a leftover and deletes it.
  const auto mark = FindLockMark(device);
  if (mark && mark->Classic && mark->Living && mark->Process != getpid()) return Busy(device);
  return std::nullopt;
}

PortTrouble Busy(const std::string& device) {
  const std::string text = device + " is in use by another program.";
  const auto mark = FindLockMark(device);
  if (mark && !mark->Living) {
    return {text, "A program that has ended has left its lock file for " + device +
                      ". Delete the file " + mark->File + " and connect again."};
  }
  return {text,
          (mark ? UserOf(*mark) + " is using " + device + "; its lock file is " + mark->File + ". "
                : "Another program is using " + device + ". ") +
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
