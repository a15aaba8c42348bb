#include "cli/setting_names.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>
#include <vector>

#include "catalogue/settings.h"
#include "cli/exit_codes.h"
#include "cli/utf8.h"
#include "text/text.h"

namespace quillmark {

namespace {

// Capitals and digits alone.
std::string Bare(std::string_view name) {
  std::string bare;
  for (const char c : Upper(name)) {
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) bare += c;
  }
  return bare;
}

// How many letters must be changed, put in or taken out.
std::size_t Distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t corner = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = corner + (a[i] == b[j] ? 0 : 1);
      corner = row[j + 1];
      row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, changed});
    }
  }
  return row.back();
}

// The nearer of word and caption; one that holds the name is near.
std::size_t Farness(const Setting& setting, const std::string& name) {
  std::size_t least = name.size() + 100;
  for (const std::string& own : {Bare(setting.Word), Bare(setting.View.Caption)}) {
    const bool holds = name.size() > 2 && own.find(name) != std::string::npos;
    least = std::min(least, holds ? 1 : Distance(own, name));
  }
  return least;
}

std::string Nearest(const std::string& name) {
  std::vector<std::pair<std::size_t, const Setting*>> all;
  for (const Setting& setting : AllSettings()) all.emplace_back(Farness(setting, name), &setting);
  std::ranges::stable_sort(all, {}, &std::pair<std::size_t, const Setting*>::first);
  constexpr std::size_t most = 3;
  std::string names;
  for (std::size_t i = 0; i < std::min(most, all.size()); ++i) {
    const Setting& setting = *all[i].second;
    names += (i == 0 ? "" : ", ") + std::string(setting.Word) + " (" + setting.View.Caption + ")";
  }
  return names;
}

}  // namespace

const Setting& SettingNamed(std::string_view name) {
  const std::string bare = Bare(name);
  for (const Setting& setting : AllSettings()) {
    if (!bare.empty() && (bare == Bare(setting.Word) || bare == Bare(setting.View.Caption))) {
      return setting;
    }
  }
  throw Failure{Exit::Usage,
                "There is no setting \"" + FromUtf8(name).value_or("?").substr(0, 40) + "\".",
                "The nearest are: " + Nearest(bare) + "."};
}

}  // namespace quillmark
