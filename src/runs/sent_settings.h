#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/settings.h"

namespace quillmark {

// What one line sets: the value of a setting, or whether it is on.
struct SentValue {
  std::vector<std::string> Planned{};  // what is still to be sent, one after the other
  std::optional<std::string> Sent{};   // what was sent last
  std::string Line{};                  // in which line
  bool Taken = false;                  // the radio has said "PROGRAMMED OK" to it
  std::string Refusal{};               // the radio's words; empty: none came
};

// One setting of an act.
struct SentSetting {
  const Setting* What = nullptr;
  SentValue Value{};
  SentValue Switch{};    // of a setting that is also turned on and off, by a line of its own
  std::string Before{};  // what the radio had before the act; empty: not known
};

// The settings that the console sends to the radio in one act (one change, a file, a preset, a
// role, ticked rows), and what the radio says to each. A line counts when its word is that of a
// setting in the catalogue and a value stands behind it; so no password and no encryption code ever
// comes in. Part of the main window, and as long-lived; what is sent does not depend on it.
class SentSettings {
 public:
  explicit SentSettings(std::span<const Setting> settings) : settings(settings) {}
  SentSettings(const SentSettings&) = delete;
  SentSettings& operator=(const SentSettings&) = delete;

  // What is known of the last act is forgotten: another one begins, or the radio is another.
  void Forget();
  // Lines that the act is about to send, behind those planned before. The last value of a setting
  // counts.
  void Plan(std::span<const std::string> lines);

  // While one lives, the lines that are said belong to the act.
  class Listening {
   public:
    explicit Listening(SentSettings& sent) : sent(sent) { ++sent.listening; }
    ~Listening() { --sent.listening; }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

   private:
    SentSettings& sent;
  };
  void Said(const std::string& line);
  // What the radio has answered to a line. False when the act has sent no such line.
  bool Answered(const std::string& line, bool taken, const std::string& words);

  // By the order of the catalogue.
  const std::map<SettingId, SentSetting>& All() const { return sent; }
  // What the last read has shown of a setting; empty when that is not the radio's value now. Asked
  // when an act first names the setting. May be empty.
  std::function<std::string(SettingId)> ShownNow;
  // Called when the act is forgotten. May be empty.
  std::function<void()> OnForgotten;

 private:
  SentValue* ValueOf(const std::string& line, std::string& value);

  std::span<const Setting> settings;
  std::map<SettingId, SentSetting> sent;
  int listening = 0;
};

}  // namespace quillmark
