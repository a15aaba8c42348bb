#include "attack/oracle.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "attack/damage.h"
#include "sim/sim_radio_table.h"
#include "sim/sim_words.h"

namespace quillmark::attack {

using sim::Lowered;
using sim::Trimmed;
using sim::ValueAfter;

namespace {

constexpr const char* notAvailable = "NOT AVAILABLE";

// The setting that a line programs; nothing for a line that reads or that no radio knows.
std::optional<std::string> ProgrammedWord(const std::string& line) {
  for (const std::string& word : SettingWords()) {
    const auto value = ValueAfter(line, word);
    if (value && line.size() > word.size()) return word;
  }
  return std::nullopt;
}

// Whether a line can change anything about the radio.
bool Changes(const std::string& line) {
  if (ProgrammedWord(line)) return true;
  const std::string bare = Lowered(Trimmed(line));
  for (const char* word : {"setup", "key", "program", "yes", "zone clear", "erase"}) {
    if (bare == word) return true;
  }
  for (const char* word : {"k7m2", "code", "rx", "tx"}) {
    const auto value = ValueAfter(line, word);
    if (value && !Trimmed(*value).empty()) return true;
  }
  return ValueAfter(line, "k7m2") || (ValueAfter(line, "pass") && bare != "pass none");
}

// The lines that a damaged byte, or a radio that went, has made something else of: the one that
// ended just then, and the one that was on its way.
std::set<sim::Time> DamagedLines(const World& world) {
  std::set<sim::Time> damaged;
  for (const sim::Time at : world.Broken) {
    for (const TakenLine& line : world.Taken()) {
      if (line.At >= at) damaged.insert(line.At);
      if (line.At > at) break;
    }
  }
  return damaged;
}

std::string Printed(const std::string& word, const std::string& value) {
  if (word == "ser") return "SN " + value;
  if (word == "srev") return "77-1234A01\r\n" + value + "  01Jan2009";
  for (const sim::RadioSetting& row : sim::SettingRows()) {
    if (row.Word == word) return row.Label.empty() ? value : std::string(row.Label) + " " + value;
  }
  return value;
}

// All that a row may show: what it showed, what the radio says now, what it said meanwhile, and
// that there is no such thing.
std::set<std::string> RowTexts(const World& world, const std::string& word,
                               const std::map<std::string, std::string>& replies) {
  std::set<std::string> texts{notAvailable, "n/a"};
  if (const auto at = replies.find(word); at != replies.end()) texts.insert(at->second);
  if (const auto values = world.History().find(word); values != world.History().end()) {
    for (const std::string& value : values->second) texts.insert(Printed(word, value));
    texts.insert(Printed(word, "n/a"));
    texts.insert(Printed(word, "PROGRAMMABLE ONLY AT MASTER"));
  }
  if (word == "lpm" || word == "lpmhold" || word == "rtu") texts.insert("NOT A SELECTED OPTION");
  return texts;
}

}  // namespace

void JudgeRadio(const World& world, const Meant& meant, Findings& findings) {
  std::set<std::string> programmed;
  const std::set<sim::Time> damaged = DamagedLines(world);
  for (const TakenLine& line : world.Taken()) {
    const bool allowed = line.OwnValue || meant.Lines.contains(line.Text) ||
                         damaged.contains(line.At) || !Changes(line.Text);
    if (!allowed)
      findings.push_back("the radio took a line that nobody meant: " + Quoted(line.Text));
    if (const auto word = ProgrammedWord(line.Text)) programmed.insert(*word);
  }
  if (world.Swapped) return;
  for (const auto& [word, values] : world.History()) {
    if (values.size() > 1 && word != "srev" && !programmed.contains(word)) {
      findings.push_back("the radio's " + word + " has changed without a command");
    }
  }
}

void JudgeRows(World& world, const Fault& fault, const std::map<std::string, std::string>& before,
               Findings& findings) {
  const auto replies = Replies(world.Radio());
  int damagedRows = 0;
  for (const auto& [word, text] : world.ShownRows()) {
    std::set<std::string> texts = RowTexts(world, word, replies);
    if (const auto at = before.find(word); at != before.end()) texts.insert(at->second);
    if (texts.contains(text) || (word == "show sync" && text.starts_with("DEPTH "))) continue;
    const bool damaged =
        std::any_of(texts.begin(), texts.end(), [&, &shown = text](const std::string& whole) {
          return MayBecome(whole, shown, fault.Damages);
        });
    const bool mayBe = fault.Damages == Fault::Damage::Noise || ++damagedRows == 1;
    if (!damaged || !mayBe) {
      findings.push_back("the row of " + word + " shows " + Quoted(text) + ", not " +
                         Quoted(replies.contains(word) ? replies.at(word) : ""));
    }
  }
}

void JudgeEnd(World& world, Findings& findings) {
  const bool lineWorks = !world.Line().HungUp() && world.Faults().SilentFrom == 0;
  if (lineWorks && !world.Radio().Echo()) findings.push_back("the radio's echo is left off");
  if (world.Ended()) return;
  const auto flagBack = [&world] { return !world.Main().EchoIsOff || !world.Port().PortOpen(); };
  if (lineWorks && !world.RunUntil(flagBack, Seconds(30))) findings.push_back("EchoIsOff is left");
  if (world.Main().DirectPortMode) findings.push_back("DirectPortMode is left");
  if (world.Application().Talk().Turns.Taken()) findings.push_back("the line is left taken");
  if (world.Port().PortOpen() == world.Enabled("tbr_Connect")) {
    findings.push_back("the port and the Connect button disagree");
  }
}

void JudgeHealed(World& world, Findings& findings) {
  if (!world.Radio().Echo()) findings.push_back("after the healing the radio's echo is off");
  if (world.Main().EchoIsOff) findings.push_back("after the healing EchoIsOff is left");
  const auto replies = Replies(world.Radio());
  const bool remote = world.Radio().Setting("mode") == "R";
  for (const auto& [word, text] : world.ShownRows()) {
    const std::string& reply = replies.at(word);
    const bool refused = reply.find("SELECTED OPTION") != std::string::npos ||
                         reply.find("PROGRAMMABLE ONLY") != std::string::npos || reply == "n/a" ||
                         (remote && word == "xaddr");
    if (text == reply || (refused && text == notAvailable)) continue;
    findings.push_back("after the healing the row of " + word + " shows " + Quoted(text) +
                       ", not " + Quoted(reply));
  }
}

}  // namespace quillmark::attack
