#pragma once

#include <string>
#include <string_view>

#include "sim/sim_radio.h"

namespace quillmark {

// Gives every setting a value other than its factory value, where the radio's mode and revision
// have it.
inline void ProgramOddValues(sim::SimRadio& radio) {
  std::string_view values =
      "unit=12345|own=Hill > north|owm=Spare|pwr=21|baud=9600 7E1|port=RS485|device=CTS KEY|"
      "amask=0000 00FF|asense=LO|cts=5|ctshold=70|rxtot=15|rxd=6|sleep=ON|lpmhold=80|addr=1234|"
      "csaddr=77|hoptime=28|skip=1,3|lpm=2|repeat=3|retry=4|fec=ON|buff=OFF|saf=ON|xaddr=7|"
      "xmin=1|xmax=9|xmap=0000000F|xpri=3|xrssi=-90|dtype=ROOT|dlink=9600 OFF|rtu=5 ON|";
  while (!values.empty()) {
    const std::size_t equals = values.find('=');
    const std::size_t end = values.find('|');
    radio.Program(values.substr(0, equals), values.substr(equals + 1, end - equals - 1));
    values.remove_prefix(end + 1);
  }
}

}  // namespace quillmark
