#include "qt/ini_preference_store.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <fstream>
#include <sstream>

namespace quillmark {
namespace {

class StoreFile : public testing::Test {
 protected:
  std::filesystem::path File() const {
    return std::filesystem::path(folder.path().toStdString()) / "console" / "preferences.ini";
  }
  void Put(const std::string& text) const {
    std::filesystem::create_directories(File().parent_path());
    std::ofstream(File(), std::ios::binary) << text;
  }
  static std::string TextOf(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }

  QTemporaryDir folder;
};

TEST_F(StoreFile, ReadsWhatPeopleWriteByHand) {
  Put("\xEF\xBB\xBF; my console\r\n[Properties]\r\n commport = 3 \r\n\r\n[preferences]\n"
      "TextColor=&H990000\nOdd=a,b;c=d%20\nQuoted=\" blank "
      "\"\nEmpty=\nM\xC3\xBCller=\xC3\xA9t\xC3\xA9\n"
      "nonsense\n[Ports]\nCom1=/dev/pts/5\nCom1=/dev/pts/6\n");
  const IniPreferenceStore store(File());
  const struct {
    const char* Section;
    const char* Key;
    const char* Value;
  } cases[] = {{"Properties", "CommPort", "3"},      {"Preferences", "TextColor", "&H990000"},
               {"Preferences", "Odd", "a,b;c=d%20"}, {"Preferences", "Quoted", " blank "},
               {"Preferences", "Empty", ""},         {"Preferences", "M\xFCller", "\xE9t\xE9"},
               {"Ports", "Com1", "/dev/pts/6"},      {"Ports", "Com2", "fallback"},
               {"Nowhere", "CommPort", "fallback"}};
  for (const auto& c : cases) EXPECT_EQ(store.Read(c.Section, c.Key, "fallback"), c.Value) << c.Key;
}

TEST_F(StoreFile, WritesWhatAPersonCanReadAndReadsItBack) {
  const struct {
    const char* Value;
    const char* Line;
  } cases[] = {{"1", "K=1"},
               {"10027008", "K=10027008"},
               {"a, b & c = 5 % ; #", "K=a, b & c = 5 % ; #"},
               {"\xE9t\xE9", "K=\xC3\xA9t\xC3\xA9"},
               {" blanks ", "K=\" blanks \""},
               {"\"quoted\" \\n", "K=\"\\\"quoted\\\" \\\\n\""},
               {"two\r\nlines", "K=\"two\\r\\nlines\""},
               {"", "K="}};
  for (const auto& c : cases) {
    IniPreferenceStore(File()).Write("S", "K", c.Value);
    EXPECT_EQ(TextOf(File()), "[S]\n" + std::string(c.Line) + "\n");
    EXPECT_EQ(IniPreferenceStore(File()).Read("S", "K", "none"), c.Value);
  }
}

TEST_F(StoreFile, KeepsCommentsOrderAndTheKeysOfAnotherConsole) {
  Put("# mine\n[Ports]\n; radio on the roof\nCom1=/dev/ttyUSB7\n\n[Preferences]\nBoldText=True\n");
  IniPreferenceStore first(File());
  IniPreferenceStore second(File());
  first.Write("Preferences", "KeepAlive", "False");
  second.Write("Ports", "Com2", "/dev/ttyS0");
  second.Write("Properties", "CommPort", "2");
  first.Write("Ports", "Com1", "/dev/ttyUSB8");
  EXPECT_EQ(TextOf(File()),
            "# mine\n[Ports]\n; radio on the roof\nCom1=/dev/ttyUSB8\nCom2=/dev/ttyS0\n\n"
            "[Preferences]\nBoldText=True\nKeepAlive=False\n\n[Properties]\nCommPort=2\n");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(File().parent_path()), {}), 1);
}

TEST_F(StoreFile, ADamagedFileGivesTheDefaultsAndIsKeptAside) {
  const std::string damaged("[Preferences]\nBoldText=Fal\0\x01\x02", 29);
  Put(damaged);
  IniPreferenceStore store(File());
  EXPECT_EQ(store.Read("Preferences", "BoldText", "True"), "True");
  EXPECT_EQ(TextOf(File()), damaged);
  store.Write("Preferences", "KeepAlive", "False");
  EXPECT_EQ(TextOf(File()), "[Preferences]\nKeepAlive=False\n");
  EXPECT_EQ(TextOf(File().string() + ".bak"), damaged);
}

TEST_F(StoreFile, AFileThatCannotBeWrittenLastsAsLongAsTheProgram) {
  std::filesystem::create_directories(File());
  IniPreferenceStore store(File());
  store.Write("Properties", "CommPort", "4");
  EXPECT_EQ(store.Read("Properties", "CommPort", "1"), "4");
}

}  // namespace
}  // namespace quillmark
