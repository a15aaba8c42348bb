#include <algorithm>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "attack/damage.h"
#include "attack/oracle.h"
#include "sim/sim_words.h"

namespace quillmark::attack {

namespace {

constexpr const char* aFolder = "(folder)";

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
      if ((word != "dlink" && word != "rtu") || blank == std::string::npos) continue;
      lines.insert(sim::Raised(word) + " " + value.substr(0, blank) + "\r");
      lines.insert(sim::Raised(word) + (value.ends_with("(ON)") ? " ON\r" : " OFF\r"));
    }
  }
  return lines;
}

// A head's line with the serial number or the revision of another radio.
bool IsOtherHead(const World& world, const std::string& line, const std::string& right) {
  for (const char* word : {"ser", "srev"}) {
    for (const std::string& old : world.History().at(word)) {
      const std::size_t at = right.find(old);
      if (at == std::string::npos) continue;
      for (const std::string& value : world.History().at(word)) {
        if (line == std::string(right).replace(at, old.size(), value)) return true;
      }
    }
  }
  return false;
}

// A file that was made while the radio was programmed has lines of both.
bool HasChanged(const World& world) {
  return std::any_of(world.History().begin(), world.History().end(),
                     [](const auto& each) { return each.second.size() > 1; });
}

// How a text stands to the one that it should be.
struct Compared {
  bool Whole = false;
  std::string Wrong{};  // the first line that is not right
};

// Compares the lines of a file with those that it should have.
class Comparison {
 public:
  Comparison(const World& bench, const Fault& struck, bool mayHaveGaps)
      : world(bench),
        fault(struck),
        gaps(mayHaveGaps || bench.Swapped || HasChanged(bench)),
        others(OtherLines(bench)) {}

  Compared Of(const std::string& text, const std::string& right) {
    if (text == right) return {.Whole = true};
    const auto lines = Lines(text);
    const auto wanted = Lines(right);
    std::size_t next = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::size_t at = PlaceOf(lines[i], wanted, next);
      const bool end = i + 1 == lines.size() && lines[i].empty();
      if (at < wanted.size()) {
        if (!IsRight(lines[i], wanted[at])) ++damaged;
        next = at + 1;
      } else if (!end && !(gaps && others.contains(lines[i]))) {
        return Wrong(i, lines[i]);
      }
    }
    if (damaged > 1 && fault.Damages != Fault::Damage::Noise) return {.Wrong = "(several)"};
    return {.Whole = gaps || lines.size() == wanted.size()};
  }

 private:
  // Which wanted line it is, from `next` on; the number of lines when it is none of them.
  std::size_t PlaceOf(const std::string& line, const std::vector<std::string>& wanted,
                      std::size_t next) const {
    const std::size_t end = gaps ? wanted.size() : std::min(next + 1, wanted.size());
    for (std::size_t at = next; at < end; ++at) {
      if (Fits(line, wanted[at])) return at;
    }
    return wanted.size();
  }
  static Compared Wrong(std::size_t index, const std::string& line) {
    return {.Wrong = "(line " + std::to_string(index + 1) + ") " + Quoted(line)};
  }
  bool IsRight(const std::string& line, const std::string& wanted) const {
    const std::string word = wanted.substr(0, wanted.find(' '));
    return line == wanted || IsOtherHead(world, line, wanted) ||
           (!word.empty() && others.contains(line) && line.starts_with(word));
  }
  bool Fits(const std::string& line, const std::string& wanted) const {
    return IsRight(line, wanted) || MayBecome(wanted, line, fault.Damages);
  }

  const World& world;
  const Fault& fault;
  bool gaps;
  std::set<std::string> others;
  int damaged = 0;
};

std::optional<std::string> At(const Tree& tree, const std::string& path) {
  const auto found = tree.find(path);
  return found == tree.end() ? std::nullopt : std::optional(found->second);
}

// Judges all files after a case.
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
    const Compared compared =
        Comparison(world, fault, meant.WithGaps.contains(path)).Of(*text, right);
    if (!compared.Wrong.empty()) return Add(path, "holds the line " + compared.Wrong);
    const bool mayBeCut = (world.Swapped || meant.WithGaps.contains(path)) && backup == old;
    if (compared.Whole && !(mayBeCut && world.Told(meant.Boxes))) {
      if (backup && backup != aFolder) Add(path, "is whole, but its .bak is left");
      return;
    }
    if (old && backup != old) Add(path, "is cut short and the old one lost");
    if (!fault.Leaves && !world.Told(meant.Boxes)) Add(path, "is cut short and nobody was told");
  }

  void JudgeOther(const std::string& path, const std::string& text) {
    if (before.contains(path) || meant.Files.contains(path)) return;
    const bool backup =
        path.ends_with(".bak") && meant.Files.contains(path.substr(0, path.size() - 4));
    const bool log = path == "session.log";
    const bool report = path.starts_with("data/Temp/") && path.ends_with(".txt");
    const bool source = path.starts_with("in");
    if (!backup && !log && !report && !source && text != aFolder) Add(path, "is left behind");
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
    const bool whole =
        std::any_of(meant.Prints.begin(), meant.Prints.end(), [&](const auto& right) {
          return Comparison(world, fault, false).Of(print.Text, right).Whole;
        });
    if (!whole) findings.push_back("a report went to the printer that is not whole or not true");
  }
}

}  // namespace quillmark::attack
