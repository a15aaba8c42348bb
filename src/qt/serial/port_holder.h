#pragma once

#include <string>

namespace quillmark {

// The program that has the device open, as "minicom (process 812)"; empty when nobody has, or the
// system does not tell, as for programs of other users. The device is not opened. Looks through all
// processes.
std::string HolderOf(const std::string& device);

}  // namespace quillmark
