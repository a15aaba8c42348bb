#include "history/copy_store.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "config/config_keys.h"
#include "config/config_lines.h"
#include "config/replaced_file.h"
#include "file_text.h"
#include "sim/bench/virtual_machine.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

RadioCopy CopyWith(const std::string& power, bool pinned = false) {
  return {.Serial = "SN 7",
          .Firmware = "77",
          .Reason = "read",
          .Name = "",
          .Pinned = pinned,
          .Lines = {"MODE M", "PWR " + power}};
}

class CopyStoreTest : public ::testing::Test {
 public:
  fs::path Add(CopyStore& store, const std::string& radio, std::int64_t time, bool pinned = false) {
    const RadioCopy copy = CopyWith(std::to_string(time), pinned);
    return store.Add(radio, CopyText(copy, "1/1/2026", time), time);
  }
  // The powers of the copies, oldest first.
  std::string Powers(const CopyStore& store, const std::string& radio) {
    std::string powers;
    for (const fs::path& file : store.FilesOf(radio)) {
      const auto& lines = ReadCopy(file).Copy.Lines;
      powers += lines.empty() ? "? " : lines.back().substr(4) + " ";
    }
    return powers;
  }
  [[noreturn]] void KeepOn(CopyStore& store, int tellTo) {
    for (std::int64_t time = 0;; ++time) {
      Add(store, "A", time);
      if (write(tellTo, "k", 1) != 1) _exit(1);
    }
  }
  // A program keeps copies, one after the other, until it is killed, at some moment behind its
  // first one. How many it has told.
  std::size_t KeptUntilKilled(CopyStore& store, int turns) {
    int pipe[2];
    if (::pipe(pipe) != 0) return 0;
    const pid_t child = fork();
    if (child == 0) KeepOn(store, pipe[1]);
    close(pipe[1]);
    char kept = 0;
    std::size_t told = read(pipe[0], &kept, 1) == 1 ? 1 : 0;
    while (turns-- > 0) getppid();
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(pipe[0], &kept, 1) == 1) ++told;
    close(pipe[0]);
    return told;
  }
  // Those that are sound, and for their owner alone.
  std::size_t CountSound(const CopyStore& store, const std::string& radio) {
    std::size_t sound = 0;
    for (const fs::path& file : store.FilesOf(radio)) {
      const bool own =
          fs::status(file).permissions() == (fs::perms::owner_read | fs::perms::owner_write);
      if (own && ReadCopy(file).State == CopyState::Sound) ++sound;
    }
    return sound;
  }
  fs::path Folder(const std::string& radio) const { return files.Data() / "radios" / radio; }

  sim::ScratchFiles files;
};

TEST_F(CopyStoreTest, TheOldestUnpinnedSoundOnesMakeRoomButNeverTheNewest) {
  CopyStore few(files, {.OfRadio = 3});
  Add(few, "A", 10, true);
  const fs::path foreign = Folder("A") / "1970-01-01_00-00-00.txt";
  std::ofstream(foreign) << "PWR 1\r\n";
  Add(few, "A", 20);
  Add(few, "A", 30);
  EXPECT_EQ(Powers(few, "A"), "1 10 30 ");
  // What others put there is never the newest one.
  std::ofstream(Folder("A") / "zzz.txt") << "PWR z\r\n";
  // A clock that went wrong: it is still the newest, and the order of keeping holds.
  Add(few, "A", 5);
  Add(few, "A", 6);
  EXPECT_EQ(Powers(few, "A"), "1 10 6 z ");
  EXPECT_EQ(few.Newest("A")->Lines.back(), "PWR 6");
  const auto size = fs::file_size(few.FilesOf("A")[2]);
  CopyStore small(files, {.OfRadio = 100, .Bytes = size * 5});
  for (const std::int64_t time : {100, 101, 102, 103}) Add(small, "B", time);
  EXPECT_EQ(Powers(small, "A") + "| " + Powers(small, "B"), "1 10 6 z | 102 103 ");
}

TEST_F(CopyStoreTest, WhatIsNoSoundCopyIsShownAsItIsAndNeverFollowedOrLost) {
  CopyStore store(files, {.OfRadio = 1});
  const fs::path sound = Add(store, "A", 50);
  const std::string text = FileText(sound);
  const auto write = [&](const std::string& name, const std::string& content) {
    std::ofstream(Folder("A") / name, std::ios::binary) << content;
  };
  fs::create_directories(files.Data());
  std::ofstream(files.Data() / "secret.txt") << text;
  write("01 cut.txt", text.substr(0, text.size() - 25));
  write("02 cut.txt", text.substr(0, text.find("#End")));
  std::string changed = text;
  write("03 changed.txt", changed.replace(text.find("PWR"), 3, "pwr"));
  write("04 long.txt", std::string(5000, 'x'));
  write("05 empty.txt", "");
  fs::create_symlink(files.Data() / "secret.txt", Folder("A") / "06 link.txt");
  fs::create_directory(Folder("A") / "07 folder.txt");
  mkfifo((Folder("A") / "08 pipe.txt").c_str(), 0600);
  fs::create_directory_symlink(files.Data(), files.Data() / "radios" / "B");
  std::string states;
  Add(store, "A", 60);
  for (const fs::path& file : store.FilesOf("A")) {
    states += "SCX?"[static_cast<int>(ReadCopy(file).State)];
  }
  // The old sound one went.
  EXPECT_EQ(states, "CCX?C???S");
  EXPECT_EQ(store.Radios(), std::vector<std::string>{"A"});
  EXPECT_TRUE(store.FilesOf("B").empty());
  EXPECT_THROW(store.Add("B", text, 70), FileError);
  EXPECT_TRUE(fs::exists(files.Data() / "secret.txt"));
}

// The store and restore window looks into comments too.
TEST_F(CopyStoreTest, NamesAndReasonsComeBackAndHoldNoWordOfASetting) {
  RadioCopy copy = CopyWith("5", true);
  copy.Name = "MODE of\r\nPORT, ALARM ACTIVE";
  copy.Reason = "before firmware FEC.1";
  CopyStore store(files);
  const fs::path file = store.Add("A", CopyText(copy, "1/1/2026", 0), 0);
  for (const std::string& line : ReadConfigText(file, 1000).Lines) {
    EXPECT_TRUE(!IsComment(line) || !SettingOfLine(line)) << line;
  }
  const KeptCopy kept = ReadCopy(file);
  EXPECT_EQ(kept.Copy.Name + "|" + kept.Copy.Reason, "MODE ofPORT, ALARM ACTIVE|" + copy.Reason);
  EXPECT_TRUE(kept.Copy.Pinned);
}

// A program that keeps copies and is killed at any moment: whatever it has told as kept is there
// and whole, and so is everything else under a copy's name.
TEST_F(CopyStoreTest, NoHalfCopyCountsAndNoneIsLostWhereverAProgramIsKilled) {
  constexpr std::size_t rounds = 200;
  CopyStore store(files, {.OfRadio = 1'000'000});
  std::minstd_rand random(1);
  std::size_t told = 0;
  for (std::size_t round = 0; round < rounds; ++round) {
    told += KeptUntilKilled(store, static_cast<int>(random() % 2000));
  }
  EXPECT_GE(told, rounds);
  const std::size_t sound = CountSound(store, "A");
  EXPECT_EQ(sound, store.FilesOf("A").size());
  EXPECT_GE(sound, told);
  EXPECT_LE(sound, told + rounds);  // some were killed before they could tell
}

// Two programs at once, in the same second.
TEST_F(CopyStoreTest, TwoProgramsKeepTheirCopiesSideBySide) {
  constexpr int each = 60;
  std::vector<pid_t> children;
  for (int program = 0; program < 2; ++program) {
    children.push_back(fork());
    if (children.back() == 0) {
      CopyStore store(files);
      for (int i = 0; i < each; ++i) Add(store, "A", 1000 * program + i);
      _exit(0);
    }
  }
  for (const pid_t child : children) {
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const CopyStore store(files);
  EXPECT_EQ(store.FilesOf("A").size(), 2U * each);
  EXPECT_EQ(CountSound(store, "A"), 2U * each);
}

}  // namespace
}  // namespace quillmark
