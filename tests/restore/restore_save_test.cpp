#include "restore_bench.h"
#include "text/text.h"

namespace quillmark {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class RestoreSave : public RestoreBench {
 public:
  // What a radio of odd values gives, from the settings on. Before a line stand the modes and the
  // lowest revision that have it ("<" and a revision: those below).
  static std::string OddLines(char mode, const std::string& revision) {
    const char* const lines =
        "UNIT 12345|OWN Hill > north|OWM Spare|M//MODE M|R//MODE R|X//MODE X|PWR 21 dBm|"
        "BAUD 9600 7E1|PORT RS485|DEVICE CTS KEY|AMASK 0000 00FF|ALARM ACTIVE: LO|CTS 5|"
        "CTSHOLD 70|M//RXTOT 15|MRX/3/RXD 6|RX//SLEEP ON|MRX/3.2/LPMHOLD 80|ADDR 1234|"
        "M/3.2/CSADDR 77|M//HOPTIME 28|M//SKIP 1,3|M/3.2/LPM 2|M//REPEAT 3|M//RETRY 4|M//FEC ON|"
        "M//BUFF OFF|M//SAF ON|XADDR 7|MRX/<2/XMIN 1|MRX/<2/XMAX 9|MRX/2/XMAP 0000000F|"
        "MRX/2/XPRI 3|MRX/2/XRSSI -90|MRX/2/DTYPE ROOT|MRX/2/DLINK 9600|MRX/2/DLINK OFF|"
        "MRX/2/RTU 5|MRX/2/RTU ON";
    std::string text;
    for (const std::string& line : Split(lines, '|')) {
      const auto parts = Split(line, '/');
      const std::string gate = parts.size() == 1 ? "" : parts[1];
      const bool here = parts.size() == 1 ||
                        (parts[0].find(mode) != std::string::npos &&
                         (gate.starts_with('<') ? revision < gate.substr(1) : revision >= gate));
      if (here) text += parts.back() + "\r\n";
    }
    return text;
  }
  // How many settings they hold: DLINK and RTU take two lines.
  static std::string Saved(const std::string& lines) {
    const auto all = std::ranges::count(lines, '\n');
    return std::to_string(all - (lines.find("DLINK") == std::string::npos ? 0 : 2));
  }
  static std::string Head(const std::string& revision) {
    return "Created by Kelvor Quillmark Configuration Software Version 1.0.0\r\n"
           "On 11/22/2026\r\nFrom Radio, serial number: SN 00123456\r\n"
           "With Firmware Version: \r\n77-1234A01\r\n" +
           revision + "  01Jan2009\r\n\r\n\r\n";
  }
};

TEST_F(RestoreSave, TheFileHoldsWhatTheWindowShows) {
  for (const std::string revision : {"1.9.0", "2.0.0", "3.0.0", "3.1.0", "3.2.0"}) {
    for (const char mode : {'M', 'R', 'X'}) {
      SCOPED_TRACE(revision + mode);
      StartOdd({.Revision = revision, .Mode = mode});
      InWindow([&] {
        Write("window.txt", "old");  // replaced without a question
        ClearLog();
        const Duration start = Now();
        EXPECT_EQ(Save(), Head(revision) + OddLines(mode, revision));
        EXPECT_EQ(Sent(), "\rser\r\rsrev\r");
        EXPECT_GE(Now() - start, Milliseconds(2400));
        EXPECT_EQ(Text("lblOutcome"), "Saved " + Saved(OddLines(mode, revision)) + " settings to " +
                                          InScratch("window.txt").string() + ".");
        EXPECT_FALSE(std::filesystem::exists(InScratch("window.txt.bak")));
        EXPECT_TRUE(Window().Visible() && Window().Enabled() && Window().ReadIdle);
        EXPECT_FALSE(WindowOpen("frmProgram"));
        EXPECT_TRUE(Shared().RefreshRequested);
      });
      EndSession();
    }
  }
}

TEST_F(RestoreSave, RowsWithoutAValue) {
  const struct {
    const char *Word, *Reply, *Lines;  // of the row; none: left out
  } cases[] = {
      {"pwr", "\r\nNot Available\r\n", ""},
      {"dlink", "\r\nDLINK NOT AVAILABLE\r\n", ""},
      {"dlink", "\r\nDLINK 9600\r\n", "DLINK OFF\r|"},
      {"dlink", "\r\nDLINK 9600(ON)\r\n", "DLINK 960\r|DLINK ON\r|"},
      {"rtu", "\r\nNOT A SELECTED OPTION\r\n", ""},
      {"rtu", "\r\nRTU 15 (OFF)\r\n", "RTU 15\r|RTU OFF\r|"},
      {"amask", "\r\nMASK\r\n", "AMASK MASK\r|"},
      {"ctshold", "\r\nCTSHOLD N/A\r\n", ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Reply);
    StartConnected({.Mode = 'M'});
    Radio().SetReply(each.Word, each.Reply);
    InWindow([&] {
      const std::string saved = Save();
      std::string lines;
      for (const std::string& line : Split(saved, '\n')) {
        if (line.starts_with(Upper(each.Word) + " ")) lines += line + "|";
      }
      EXPECT_EQ(lines, each.Lines);
      EXPECT_THAT(saved, Not(HasSubstr("OPTION")));
    });
    EndSession();
  }
}

TEST_F(RestoreSave, FilesThatCannotBeWritten) {
  StartConnected();
  std::filesystem::create_directory(InScratch("folder"));
  InWindow([&] {
    ExpectSaveFile("Radio Configuration Save").Offering("00123456 2026-01-01.txt");  // cancelled
    ASSERT_TRUE(Click("tbr_SaveConfig"));
    EXPECT_TRUE(Window().ReadIdle);
    for (const std::filesystem::path& target :
         {InScratch("folder"), std::filesystem::path("/dev/full"), InScratch("no") / "file"}) {
      ExpectBox("File Error").Containing(target.string());
      ExpectSaveFile("Radio Configuration Save").Choose(target);
      ASSERT_TRUE(Click("tbr_SaveConfig"));
      EXPECT_TRUE(Window().ReadIdle && Window().Enabled());
    }
  });
}

// The faults at the two questions of a save; 0 for none, else which of them it hits.
struct FaultySave {
  const char* Name;
  int Silent, NoPrompt, HangUp;
  bool Serial, Version;  // what the file holds all the same
};

class RestoreSaveFaults : public RestoreSave {
 public:
  const std::string Lost = "There was an error communicating with the radio. Please reconnect";

  void SetFaults(const FaultySave& each) {
    const auto at = [now = Radio().CommandCount()](int question) {
      return question > 0 ? now + question : 0;
    };
    Faults().NoPromptAt = at(each.NoPrompt);
    Faults().SilentFrom = at(each.Silent);
    Faults().HangUpAtCommand = at(each.HangUp);
    if (each.NoPrompt == 0) ExpectBox("Error").Containing(Lost);
    if (each.HangUp > 0) ExpectBox("Click Cancel to quit, OK to ignore.");
    After(Seconds(2), [&] { Faults() = {}; });
  }
  void ExpectPulled() {
    EXPECT_EQ(Text("lblOutcome"), "The save was interrupted. " + InScratch("window.txt").string() +
                                      " holds 0 of 22 settings, the old file is beside it as "
                                      "window.txt.bak.");
    EXPECT_EQ(FileText(InScratch("window.txt.bak")), "old");
    std::filesystem::remove(InScratch("window.txt.bak"));
    EXPECT_TRUE(Window().ReadIdle && Window().Enabled());
    Run(Seconds(1));
    Unplug();
    ExpectBox("Error").Containing(Lost);
    CloseAndWait();
  }
  void ExpectSilent(const std::string& saved) {
    EXPECT_EQ(saved, "old");
    EXPECT_EQ(Boxes().back().Details,
              "The configuration was not saved. A file of that name is what it was before.");
    EXPECT_TRUE(RunUntil([&] { return !Window().Loaded(); }, Seconds(2)));
  }
};

// A reply without its end is asked for once more. A silent radio costs the save and the window, a
// pulled plug the rest of the file; the old file stays.
TEST_F(RestoreSaveFaults, AtItsTwoQuestions) {
  const FaultySave cases[] = {
      {"silent from ser", 1, 0, 0, false, false}, {"silent from srev", 2, 0, 0, false, false},
      {"no end of ser", 0, 1, 0, true, true},     {"no end of srev", 0, 2, 0, true, true},
      {"pulled at ser", 0, 0, 1, false, false},   {"pulled at srev", 0, 0, 2, true, false},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Name);
    StartConnected();
    const int before = ReadCycles();
    InWindow([&] {
      Write("window.txt", "old");
      SetFaults(each);
      const Duration start = Now();
      const std::string saved = Save();
      EXPECT_EQ(saved.find("SN 00") != std::string::npos, each.Serial);
      EXPECT_EQ(saved.find("With") != std::string::npos, each.Version);
      EXPECT_EQ(saved.find("RTU OFF") != std::string::npos, each.NoPrompt > 0);
      if (each.Silent > 0) {
        EXPECT_LT(Now() - start, Seconds(1));
        ExpectSilent(saved);
      }
      if (each.HangUp > 0) ExpectPulled();
    });
    if (each.HangUp > 0) {
      Plug();
      EXPECT_TRUE(Click("tbr_Connect"));
    }
    EXPECT_TRUE(RunUntil([&] { return ReadCycles() > before; }));
    EndSession();
  }
}

}  // namespace
}  // namespace quillmark
