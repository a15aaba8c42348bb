#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "sim/sim_radio.h"
#include "sim/sim_radio_table.h"

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

// What a radio holds, by word.
using Holdings = std::map<std::string, std::string>;
inline Holdings HoldingsOf(const sim::SimRadio& radio) {
  Holdings values;
  for (const sim::RadioSetting& row : sim::SettingRows()) {
    values[std::string(row.Word)] = radio.Setting(row.Word);
  }
  return values;
}

// The settings that have gone from one radio to another, which held something else before.
inline std::set<std::string> Arrived(const Holdings& sent, const Holdings& before,
                                     const Holdings& after) {
  std::set<std::string> words;
  for (const auto& [word, value] : sent) {
    if (before.at(word) != value && after.at(word) == value) words.insert(word);
  }
  return words;
}

// The names of those that have not arrived, and of `others` that have.
inline std::string Astray(const std::set<std::string>& arrived,
                          const std::set<std::string>& others) {
  std::string names;
  for (const sim::RadioSetting& row : sim::SettingRows()) {
    const std::string word(row.Word);
    if (arrived.contains(word) == others.contains(word)) names += word + " ";
  }
  return names;
}

}  // namespace quillmark
