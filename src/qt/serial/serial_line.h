#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/event_loop.h"

namespace quillmark {

// The line's parameters, taken from a text such as "19200,N,8,1".
struct LineSettings {
  int Baud = 19200;
  char Parity = 'N';  // N, E or O
  int DataBits = 8;
  int StopBits = 1;
};

// Nothing when the text does not read as settings.
std::optional<LineSettings> ReadLineSettings(const std::string& text);

// What cannot have left a line yet at its rate: ten bits to a byte. It knows no port, so it also
// holds where a driver cannot tell. Times are those of the event loop.
class LinePace {
 public:
  void Start(int baud);
  void Queue(Duration now, std::size_t bytes);
  // Bytes, a begun one included.
  std::size_t Held(Duration now) const;
  // How long until nothing is held; zero when nothing is.
  Duration Left(Duration now) const;
  // How long `bytes` take.
  Duration TimeOf(std::size_t bytes) const;

 private:
  int baud = 19200;
  Duration freeAt{};
};

}  // namespace quillmark
