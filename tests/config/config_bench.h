#pragma once

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "catalogue/settings.h"
#include "file_text.h"
#include "limited_files.h"
#include "odd_settings.h"
#include "sim/bench.h"

namespace quillmark {

// A session with configuration files in a scratch folder.
class ConfigBench : public sim::Bench {
 public:
  std::filesystem::path InScratch(const std::string& name) const { return ScratchFolder() / name; }

  std::filesystem::path Write(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }

  // Saves the radio's configuration; the text of the file.
  std::string Save(const std::string& name = "saved.txt") {
    ExpectSaveFile("Radio Configuration Save").Choose(InScratch(name));
    EXPECT_TRUE(Click("cmdSaveToFile"));
    return FileText(InScratch(name));
  }

  // Programs the radio from a file of that text; the unit number is left as the file has it.
  void Program(const std::string& text) {
    ExpectOpenFile("Radio Configuration Restore").Choose(Write(InScratch("program.txt"), text));
    if (text.find("UNIT") != std::string::npos) {
      ExpectInput("Check UNIT number.").Reply(Answer::Cancel);
    }
    EXPECT_TRUE(Click("cmdProgramFromFile"));
  }

  // The last question that came says what a Yes costs, and Enter does not answer Yes.
  void ExpectWarned(const std::string& cost) {
    EXPECT_EQ(Boxes().back().Details, cost);
    EXPECT_TRUE(Boxes().back().Irreversible);
  }

  // The box on a file that could not be written.
  void ExpectNotSaved(const std::filesystem::path& file) {
    ExpectBox("File Error")
        .Containing("The configuration was not saved.\r\n\r\n" + file.string() + ": ")
        .With(Icon::Exclamation);
  }

  // What every task leaves behind it, whatever has happened.
  void ExpectIdle() {
    EXPECT_FALSE(Main().DirectPortMode);
    EXPECT_TRUE(Enabled("frQuick"));
    EXPECT_TRUE(Enabled("ButtonAdv"));
    EXPECT_FALSE(Visible("barRun"));
    EXPECT_FALSE(Main().tmrPortTO.Enabled());
  }
};

// The shipped default set: a master at first, so that it takes the settings of a master, and a
// remote at the end.
inline const std::vector<std::string> defaultSet = [] {
  std::vector<std::string> lines = {"MODE M"};
  for (const Setting& setting : AllSettings()) {
    if (setting.Id == SettingId::Mode) continue;
    for (const std::string& line : FactoryLines(setting)) lines.push_back(line);
  }
  for (const std::string& line : FactoryLines(SettingOf(SettingId::Mode))) lines.push_back(line);
  return lines;
}();

}  // namespace quillmark
