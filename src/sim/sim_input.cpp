#include "sim/sim_input.h"

#include <utility>

namespace quillmark::sim {

namespace {

constexpr char carriageReturn = 13;
constexpr char escape = 27;
constexpr std::size_t mostWaiting = 256;
// Typed characters beyond this are lost, so that a line never grows without end.
constexpr std::size_t longestLine = 255;

bool IsBackspace(char byte) { return byte == 8 || byte == 127; }
bool IsControl(char byte) { return static_cast<unsigned char>(byte) < 32; }

// Changes the line as the byte says; gives what the terminal is shown for it.
std::string Edit(std::string& line, char byte) {
  if (byte == carriageReturn) return "\r\n";
  if (byte == escape) {
    line.clear();
  } else if (IsBackspace(byte)) {
    if (line.empty()) return "";
    line.pop_back();
    return "\b \b";
  } else if (!IsControl(byte) && line.size() < longestLine) {
    line += byte;
    return std::string(1, byte);
  }
  return "";
}

}  // namespace

SimInput::Byte* SimInput::Keep(const Byte& byte) {
  if (waiting.size() == mostWaiting) {
    ++lost;
    return nullptr;
  }
  return &waiting.emplace_back(byte);
}

std::optional<SimInput::Byte> SimInput::Next() {
  if (waiting.empty()) return std::nullopt;
  const Byte byte = waiting.front();
  waiting.pop_front();
  return byte;
}

void SimInput::Clear() {
  waiting.clear();
  line.clear();
  shownLine.clear();
  shownCommands = commands;
}

std::string SimInput::Show(char byte) {
  std::string shown = Edit(shownLine, byte);
  if (byte == carriageReturn && !std::exchange(shownLine, {}).empty()) ++shownCommands;
  return shown;
}

std::optional<std::string> SimInput::Take(char byte) {
  Edit(line, byte);
  if (byte != carriageReturn) return std::nullopt;
  if (!line.empty()) ++commands;
  return std::exchange(line, {});
}

}  // namespace quillmark::sim
