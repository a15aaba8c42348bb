#include <algorithm>
#include <optional>

#include "attack/damage.h"
#include "attack/oracle.h"
#include "sim/sim_words.h"

namespace quillmark::attack {

namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (const std::string_view line : sim::Pieces(text, '\n')) lines.emplace_back(line);
  return lines;
}

// The lines of a file for values that the radio had meanwhile.
std::set<std::string> OtherLines(const World& world) {
  std::set<std::string> lines;
  for (const auto& [word, values] : world.History()) {
    for (const std::string& value : values) {
      const std::size_t blank = value.find(' ');
      lines.insert(sim::Raised(word) + " " + value + "\r");
      if (word == "asense") lines.insert("ALARM ACTIVE " + value + "\r");
      if (word == "ser") lines.insert("#From Radio, serial number: SN " + value + "\r");
      if (word == "srev") {
        lines.insert("#With Firmware Version:  77-1234A01 " + value + "  01Jan2009\r");
      }
      if ((word != "dlink" && word != "rtu") || blank == std::string::npos) continue;
      lines.insert(sim::Raised(word) + " " + value.substr(0, blank) + "\r");
      lines.insert(sim::Raised(word) + (value.ends_with("(ON)") ? " ON\r" : " OFF\r"));
    }
  }
  return lines;
}

// How a text stands to the one that it should be.
struct Compared {
  bool Whole = false;
  std::string Wrong{};  // the first line that is not right
};

Compared Compare(const World& world, const Fault& fault, const std::string& text,
                 const std::string& right) {
  if (text == right) return {.Whole = true};
  const auto lines = Lines(text);
  const auto wanted = Lines(right);
  const auto others = OtherLines(world);
  int damaged = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const bool last = i + 1 == lines.size();
    if (others.contains(lines[i]) || (last && lines[i].empty())) continue;
    if (world.Swapped) {
      if (std::find(wanted.begin(), wanted.end(), lines[i]) == wanted.end()) {
        return {.Wrong = lines[i]};
      }
    } else if (i >= wanted.size() || !MayBecome(wanted[i], lines[i], fault.Damages) ||
               (lines[i] != wanted[i] && ++damaged > 1 && fault.Damages != Fault::Damage::Noise)) {
      return {.Wrong = "(line " + std::to_string(i + 1) + ") " + lines[i]};
    }
  }
  return {.Whole = world.Swapped || lines.size() == wanted.size()};
}

std::optional<std::string> At(const Tree& tree, const std::string& path) {
  const auto found = tree.find(path);
  return found == tree.end() ? std::nullopt : std::optional(found->second);
}

class FilesJudge {
 public:
  FilesJudge(World& bench, const Fault& struck, const Meant& wanted, const Tree& past)
      : world(bench), fault(struck), meant(wanted), before(past), after(bench.Files()) {}

  Findings Judge() {
    for (const auto& [path, right] : meant.Files) JudgeTarget(path, right);
    for (const auto& [path, text] : after) JudgeOther(path, text);
    for (const auto& [path, text] : before) {
      if (!after.contains(path) && !meant.Files.contains(path)) Add(path, "has gone");
    }
    return findings;
  }

 private:
  void Add(const std::string& path, const std::string& what) {
    findings.push_back("the file " + path + " " + what);
  }

  void JudgeTarget(const std::string& path, const std::string& right) {
    const auto text = At(after, path);
    const auto old = At(before, path);
    const auto backup = At(after, path + ".bak");
    if (text == old) return;
    if (!text) return Add(path, "has gone");
    const Compared compared = Compare(world, fault, *text, right);
    if (!compared.Wrong.empty()) return Add(path, "holds the line \"" + compared.Wrong + "\"");
    if (compared.Whole) {
      if (backup) Add(path, "is whole, but its .bak is left");
      return;
    }
    if (old && backup != old) Add(path, "is cut short and the old one lost");
    if (!fault.Leaves && !world.Told()) Add(path, "is cut short and nobody was told");
  }

  void JudgeOther(const std::string& path, const std::string& text) {
    if (before.contains(path) || meant.Files.contains(path)) return;
    const bool backup =
        path.ends_with(".bak") && meant.Files.contains(path.substr(0, path.size() - 4));
    const bool log = path == "session.log";
    const bool source = path.starts_with("in");
    if (!backup && !log && !source && text != "(folder)") Add(path, "is left behind");
  }

  World& world;
  const Fault& fault;
  const Meant& meant;
  const Tree& before;
  const Tree after;
  Findings findings;
};

}  // namespace

void JudgeFiles(World& world, const Fault& fault, const Meant& meant, const Tree& before,
                Findings& findings) {
  for (std::string& each : FilesJudge(world, fault, meant, before).Judge()) {
    findings.push_back(std::move(each));
  }
  for (const auto& print : world.DesktopSeen().Prints) {
    const bool whole = std::any_of(
        meant.Prints.begin(), meant.Prints.end(),
        [&](const auto& right) { return Compare(world, fault, print.Text, right).Whole; });
    if (!whole) findings.push_back("a report went to the printer that is not whole or not true");
  }
}

}  // namespace quillmark::attack
