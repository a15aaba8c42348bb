#include "qt/serial/port_holder.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "qt/serial/port_trouble.h"

namespace quillmark {

namespace fs = std::filesystem;

namespace {

bool HoldsOpen(const fs::path& process, const std::string& device) {
  std::error_code failure;
  for (fs::directory_iterator at(process / "fd", failure), end; !failure && at != end;
       at.increment(failure)) {
    std::error_code unreadable;
    if (fs::read_symlink(at->path(), unreadable) == device && !unreadable) return true;
  }
  return false;
}

bool IsProcess(const std::string& name) {
  return std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string HolderOf(const std::string& device) {
  const std::string real = RealDevice(device);
  std::error_code failure;
  for (fs::directory_iterator at("/proc", failure), end; !failure && at != end;
       at.increment(failure)) {
    const std::string process = at->path().filename().string();
    if (!IsProcess(process) || process == std::to_string(getpid())) continue;
    if (!HoldsOpen(at->path(), real)) continue;
    const std::string program = ProgramName(std::stoi(process));
    return (program.empty() ? "a program" : program) + " (process " + process + ")";
  }
  return {};
}

}  // namespace quillmark
