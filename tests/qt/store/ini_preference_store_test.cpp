#include "qt/store/ini_preference_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QLockFile>
#include <QTemporaryDir>
#include <fstream>
#include <map>
#include <sstream>
#include <utility>

#include "limited_files.h"
#include "qt/base/program_files.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

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

  std::ptrdiff_t FilesInFolder() const {
    return std::distance(std::filesystem::directory_iterator(File().parent_path()), {});
  }
  void Listen(IniPreferenceStore& store) {
    store.TellTroubles([this](const auto& trouble) { told.push_back(trouble.Text); });
  }
  QTemporaryDir folder;
  std::vector<std::string> told;
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
  EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(StoreFile, ADamagedFileGivesTheDefaultsAndIsKeptAside) {
  const auto damaged = [](int number) {
    return std::string("[\0]\nBoldText=", 13) + char('a' + number);
  };
  constexpr int most = 20;
  for (int number = 1; number <= most + 1; ++number) {
    Put(damaged(number));
    IniPreferenceStore store(File());
    EXPECT_EQ(store.Read("Preferences", "BoldText", "True"), "True");
    EXPECT_EQ(TextOf(File()), damaged(number));
    store.Write("Preferences", "KeepAlive", "False");
    EXPECT_EQ(TextOf(File()), "[Preferences]\nKeepAlive=False\n");
  }
  // All but one: the names are used up, and the last one holds the newest.
  EXPECT_EQ(FilesInFolder(), 1 + most);
  EXPECT_EQ(TextOf(File().string() + ".bak"), damaged(1));
  EXPECT_EQ(TextOf(File().string() + ".bak2"), damaged(2));
  EXPECT_EQ(TextOf(File().string() + ".bak20"), damaged(21));
}

TEST_F(StoreFile, WhatCannotBeSavedIsKeptAndToldOnce) {
  std::filesystem::create_directories(File());  // in the file's place
  IniPreferenceStore store(File());
  Listen(store);
  store.Write("Properties", "CommPort", "4");
  store.Write("Properties", "CommPort", "5");
  store.Reload();
  EXPECT_EQ(store.Read("Properties", "CommPort", "1"), "5");
  EXPECT_THAT(told, ElementsAre("The preferences file cannot be read."));

  // It goes into the file as soon as that works, and from then on the file holds.
  std::filesystem::remove(File());
  Put("[Preferences]\nBoldText=False\n");
  store.Write("Preferences", "KeepAlive", "False");
  EXPECT_EQ(TextOf(File()),
            "[Preferences]\nBoldText=False\nKeepAlive=False\n\n[Properties]\nCommPort=5\n");
  Put("[Properties]\nCommPort=6\n");
  store.Reload();
  EXPECT_EQ(store.Read("Properties", "CommPort", "1"), "6");
}

// A limit on the size of files cuts a write short in the way a full disk does.
TEST_F(StoreFile, AFullDiskLeavesTheOldFileWhole) {
  const std::string old = "; " + std::string(4000, 'x') + "\n[Properties]\nCommPort=3\n";
  Put(old);
  IniPreferenceStore store(File());
  Listen(store);
  for (int again = 0; again < 2; ++again) {
    const LimitedFiles limited(2000);
    store.Write("Properties", "CommPort", "4");
  }
  EXPECT_EQ(TextOf(File()), old);
  EXPECT_EQ(FilesInFolder(), 1);
  EXPECT_EQ(store.Read("Properties", "CommPort", "1"), "4");
  EXPECT_THAT(told, ElementsAre("The preferences file cannot be written."));
}

TEST_F(StoreFile, AFileThatCannotBeReadIsNotOverwritten) {
  const uid_t user = geteuid();
  if (user != 0) GTEST_SKIP() << "needs root, who can put on another user's rights";
  const std::string theirs = "[Properties]\nCommPort=3\n";
  Put(theirs);
  std::filesystem::permissions(File(), std::filesystem::perms::none);
  for (auto path = File().parent_path(); path != "/tmp" && path.has_relative_path();
       path = path.parent_path()) {
    std::filesystem::permissions(path, std::filesystem::perms::all);
  }
  ASSERT_EQ(seteuid(65534), 0);
  IniPreferenceStore store(File());
  Listen(store);
  store.Write("Properties", "CommPort", "4");
  const std::string seen = store.Read("Properties", "CommPort", "1");
  ASSERT_EQ(seteuid(user), 0);
  EXPECT_EQ(TextOf(File()), theirs);
  EXPECT_EQ(seen, "4");
  EXPECT_THAT(told, ElementsAre("The preferences file cannot be read."));
}

TEST_F(StoreFile, AForeignLockDoesNotHoldTheWindowUp) {
  IniPreferenceStore store(File());
  std::filesystem::create_directories(File().parent_path());
  QLockFile foreign(QString::fromStdString(File().string() + ".lock"));
  ASSERT_TRUE(foreign.tryLock());
  QElapsedTimer time;
  time.start();
  for (const char* key : {"BoldText", "KeepAlive", "LogoutOnQuit"}) {
    store.Write("Preferences", key, "False");
  }
  EXPECT_LT(time.elapsed(), 250);
  EXPECT_EQ(TextOf(File()), "[Preferences]\nBoldText=False\nKeepAlive=False\nLogoutOnQuit=False\n");
}

TEST(UserFolders, LieInTheAccountsHomeWithoutHomeAndNeverInTheRoot) {
  std::map<const char*, QByteArray> before;
  for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
    before[name] = qgetenv(name);
    qunsetenv(name);
  }
  const uid_t user = geteuid();
  const std::filesystem::path home = getpwuid(user)->pw_dir;
  EXPECT_EQ(IniPreferenceStore::UsualFile(), home / ".config/quillmark-console/preferences.ini");
  EXPECT_EQ(QtProgramFiles().Data(), home / ".local/share/quillmark-console");
  EXPECT_EQ(FolderTrouble(), std::nullopt);
  // An account that the system does not know.
  if (user == 0 && seteuid(54321) == 0) {
    EXPECT_THAT(FolderTrouble().value_or(""), StartsWith("There is no home folder"));
    qputenv("XDG_CONFIG_HOME", "/a");
    EXPECT_THAT(FolderTrouble().value_or(""), StartsWith("There is no home folder"));
    qputenv("XDG_DATA_HOME", "/b");
    EXPECT_EQ(FolderTrouble(), std::nullopt);
    EXPECT_EQ(QtProgramFiles().Data(), "/b/quillmark-console");
    EXPECT_EQ(seteuid(user), 0);
  }
  for (const auto& [name, value] : before) {
    if (value.isNull())
      qunsetenv(name);
    else
      qputenv(name, value);
  }
}

}  // namespace
}  // namespace quillmark
