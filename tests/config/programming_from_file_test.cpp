#include <sys/stat.h>

#include <algorithm>

#include "config/config_bench.h"
#include "sim/sim_radio_table.h"

namespace quillmark {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string validLine = "#With Firmware Version:  77-1234A01 3.2.0\r\n";

class ProgrammingFromFileTest : public ConfigBench {
 public:
  // The commands of the second stage, the file's own.
  std::vector<std::string> FileCommands() { return Radio().CommandsAfter("MODE R"); }

  // Everything that the radio holds, but for its names and number, which a restore leaves alone.
  static Holdings Cleared(const sim::SimRadio& radio) {
    Holdings values = HoldingsOf(radio);
    for (const char* name : {"unit", "own", "owm"}) values.erase(name);
    return values;
  }
};

// Each setting by name: one that a file lacks is still the factory's.
TEST_F(ProgrammingFromFileTest, ASavedFileBringsTheRadioBack) {
  std::set<std::string> brought;
  for (const char mode : {'M', 'R', 'X'}) {
    for (const std::string revision : {"1.9.0", "2.0.0", "3.0.0", "3.2.0"}) {
      SCOPED_TRACE(std::string(1, mode) + revision);
      StartConnected({.Revision = revision, .Mode = mode});
      ProgramOddValues(Radio());
      const std::string saved = Save();
      const Holdings sent = HoldingsOf(Radio());
      ASSERT_TRUE(Refresh());

      // The first stage alone, behind which a file of comments is an empty second one.
      Program(validLine);
      sim::SimRadio factory({.Revision = revision});
      EXPECT_EQ(Cleared(Radio()), Cleared(factory));
      EXPECT_EQ(Radio().Setting("own"), "Hill > north");
      ASSERT_TRUE(Refresh());

      Program(saved);
      brought.merge(Arrived(sent, HoldingsOf(factory), HoldingsOf(Radio())));
      ASSERT_TRUE(Refresh());
      const std::string count = Text("LastRun").substr(0, Text("LastRun").find(' '));
      EXPECT_EQ(Text("LastRun"), std::string(count).append(" of " + count + " settings taken"));
      EXPECT_EQ(Marks(), "");
      std::filesystem::remove(InScratch("saved.txt"));
      EXPECT_EQ(Save(), saved);
      ExpectIdle();
      std::filesystem::remove(InScratch("saved.txt"));
      ASSERT_TRUE(Quit());
      Restart();
    }
  }
  // The files of the main window have never held them.
  EXPECT_EQ(Astray(brought, {"xmin", "xmax", "rtu"}), "");
}

TEST_F(ProgrammingFromFileTest, TheBytesTheirTimesAndWhatShows) {
  StartConnected();
  OnCommand("OWN Mast", [&] {
    EXPECT_EQ(Text("pnl_Status"), "OWN Mast");
    EXPECT_TRUE(Visible("barRun"));
    EXPECT_FALSE(Enabled("frQuick"));
  });
  const Duration start = Now();
  Program(validLine + "\r\n\r\n#Comment\r\nOWN Mast\r\n   \r\nALARM ACTIVE: LO\r\nADDR 7");
  const Duration took = Now() - start;
  EXPECT_EQ(Sent(), [] {
    std::string sent;
    for (const std::string& line : defaultSet) sent += line + "\r";
    return sent + "OWN Mast\r   \rALARM ACTIVE: LO\rasense LO\rADDR 7\r";
  }());
  // Two pauses of a second, and for each line two looks 100 ms apart and 20 ms.
  const auto lines = static_cast<std::int64_t>(defaultSet.size() + 5);
  EXPECT_EQ(took / Milliseconds(1), 2000 + lines * 220);
  EXPECT_EQ(Radio().Setting("asense"), "LO");
  EXPECT_EQ(Text("txtTerm"), "\r\n\r\n\r\n\r\n\r\nRESTORING." +
                                 std::string(static_cast<std::size_t>(lines) - 1, '.'));
  EXPECT_EQ(Text("pnl_Status"), "ADDR 7");
  EXPECT_TRUE(Shared().RefreshRequested);
  ExpectIdle();
  Run(Seconds(3));
  EXPECT_EQ(Text("pnl_Status"), "Status: ");
}

TEST_F(ProgrammingFromFileTest, TheUnitNumberIsChecked) {
  const std::string prompt =
      "Select the UNIT number for this radio.\r\n\r\nValid numbers are from 10000 - "
      "65000.\r\n\r\nThe factory default is a 4 digit number. If you wish to change it, the entry "
      "MUST be a five digit number in the range above.\r\n\r\n(Click 'CANCEL' button to use the "
      "default entry.)";
  const struct {
    const char *Line, *Refused, *Offered, *Answer, *Sent, *Objection = "";
  } cases[] = {
      {"UNIT 3456", nullptr, nullptr, "", "UNIT 3456"},
      {"UNIT 3456", nullptr, nullptr, "10000", "UNIT 10000"},
      {"UNIT 3456", nullptr, nullptr, "65000", "UNIT 65000"},
      {"unit 3456", nullptr, nullptr, " uniT 12345 UNIT", "UNIT 12345"},
      {"UNIT 3456", "9999", "9999", "", "UNIT 3456",
       "UNIT 9999: only Cancel leaves a number of four digits"},
      {"UNIT 3456", "65001", "65001", "10001", "UNIT 10001",
       "UNIT 65001: radios take 10000 to 65000 or 4 digits"},
      {"UNIT 3456", "UNIT abc", "abc", "10001", "UNIT 10001",
       "UNIT abc: radios take 10000 to 65000 or 4 digits"},
      {"OWN Unit 7", nullptr, nullptr, "", "OWN Unit 7"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.Line) + " " + each.Answer);
    const auto before = static_cast<std::ptrdiff_t>(Boxes().size());
    StartConnected();
    const char* title = "Check UNIT number.";
    if (each.Refused != nullptr) {
      ExpectInput(title).Saying(prompt).Offering(each.Line).Type(each.Refused);
      ExpectInput(title).Saying(prompt).Offering(each.Offered).Type(each.Answer);
    } else {
      ExpectInput(title).Saying(prompt).Offering(each.Line).Type(each.Answer);
    }
    if (*each.Answer != '\0') {
      ExpectBox(ProgramTitle).Saying("New Unit: " + std::string(each.Sent));
    }
    ExpectOpenFile("Radio Configuration Restore")
        .Choose(Write(InScratch("f.txt"), validLine + each.Line));
    ASSERT_TRUE(Click("cmdProgramFromFile"));
    EXPECT_THAT(FileCommands(), ElementsAre(each.Sent));
    const auto asked = std::ranges::find(Boxes().begin() + before, Boxes().end(), title,
                                         &sim::ScriptedUser::Seen::Title);
    ASSERT_NE(asked, Boxes().end());
    EXPECT_EQ(asked->Hint, "Radios take 10000 to 65000 or 4 digits.");
    EXPECT_EQ(asked->Objection, each.Objection);
    CheckExpectations();
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(ProgrammingFromFileTest, AFileOfAnotherKindBringsTheQuestionTwice) {
  StartConnected();
  const std::string question =
      "The file does not appear to be a saved configuration file\r\nthat was created with this "
      "Quillmark Configuration utility.\r\n\r\nDo you want to send it to the radio anyway ?";
  ExpectBox("File Error").Saying(question).With(Buttons::YesNo).Reply(Answer::No);
  Program("ADDR 5");
  ExpectWarned("This clears all settings of SN 00123456 first.");
  EXPECT_EQ(Sent(), "");
  ExpectBox("File Error").Saying(question).Reply(Answer::Yes);
  ExpectBox("File Error").Saying(question).Reply(Answer::No);
  Program("ADDR 5");
  ExpectWarned("");  // it has been cleared by then
  EXPECT_THAT(FileCommands(), ElementsAre("ADDR 5"));
  ExpectIdle();
}

TEST_F(ProgrammingFromFileTest, FilesOfEveryShape) {
  std::string hundred;
  for (int line = 0; line < 100; ++line) hundred += "#\n";
  const struct {
    const char* Name;
    std::string Text;
    const char* Refused;  // part of the box; null: it is sent
    std::vector<std::string> Sent;
  } cases[] = {
      {"line feeds", validLine + "ADDR 1\nADDR 2\n", nullptr, {"ADDR 1", "ADDR 2"}},
      {"returns", validLine + "ADDR 1\rADDR 2", nullptr, {"ADDR 1", "ADDR 2"}},
      {"mark", "\xEF\xBB\xBF" + validLine + "ADDR 1", nullptr, {"ADDR 1"}},
      {"controls", validLine + std::string("AD\0D\x1BR\t 1\x7F", 10), nullptr, {"ADDR 1"}},
      {"101 lines", hundred + "with firmware version:", nullptr, {"with firmware version:"}},
      {"102 lines", hundred + validLine + "ADDR 1", "more than 101 lines", {}},
      {"one line", std::string(10'000'000, 'x'), "more than 1024 characters", {}},
      {"1024",
       validLine + "OWM " + std::string(1020, 'x'),
       nullptr,
       {"OWM " + std::string(251, 'x')}},
      {"noughts", std::string(10'000'000, '\0'), "too large", {}},
      {"1025", validLine + std::string(1025, 'x'), "more than 1024 characters", {}},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Name);
    StartConnected();
    if (each.Refused != nullptr) ExpectBox("File Error").Containing(each.Refused);
    Program(each.Text);
    if (each.Refused != nullptr) {
      EXPECT_EQ(Sent(), "");
    } else {
      EXPECT_EQ(FileCommands(), each.Sent);
    }
    ExpectIdle();
    CheckExpectations();
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(ProgrammingFromFileTest, ThingsThatAreNoFiles) {
  StartConnected();
  std::filesystem::create_directory(InScratch("folder"));
  ASSERT_EQ(mkfifo(InScratch("fifo").c_str(), 0600), 0);
  for (const auto& path : {InScratch("folder"), InScratch("fifo"), InScratch("missing.txt")}) {
    SCOPED_TRACE(path);
    if (std::filesystem::exists(path)) ExpectBox("File Error").Containing("no plain file");
    ExpectOpenFile("Radio Configuration Restore").Choose(path);
    ASSERT_TRUE(Click("cmdProgramFromFile"));
    EXPECT_EQ(Sent(), "");
  }
  // An empty file: the question comes twice, the radio is cleared, and nothing follows.
  ExpectBox("File Error").Containing("does not appear").Reply(Answer::Yes);
  ExpectBox("File Error").Containing("does not appear").Reply(Answer::Yes);
  Program("");
  EXPECT_THAT(FileCommands(), IsEmpty());
  ExpectIdle();
  // One that goes while the radio is being cleared: the default set is not sent in its place.
  ASSERT_TRUE(Refresh());
  ClearLog();
  OnCommand("SAF OFF", [this] { std::filesystem::remove(InScratch("program.txt")); });
  Program(validLine + "ADDR 1");
  EXPECT_EQ(SentCommands(), defaultSet);
  ExpectIdle();
}

TEST_F(ProgrammingFromFileTest, TheUsersOwnDefaultSetWinsAndAMissingOneSendsNothing) {
  StartConnected();
  Write(DataFolder() / "NewRadio.txt", "MODE R\nUNIT 3456\n");
  Program(validLine + "ADDR 1");
  EXPECT_THAT(SentCommands(), ElementsAre("MODE R", "UNIT 3456", "ADDR 1"));
  std::filesystem::remove(DataFolder() / "NewRadio.txt");
  std::filesystem::remove(ShippedFolder() / "NewRadio.txt");
  ASSERT_TRUE(Refresh());
  ClearLog();
  Program(validLine + "ADDR 2");
  EXPECT_THAT(SentCommands(), ElementsAre("ADDR 2"));
  ExpectIdle();
}

// Who pulls the brake gets no second stage, and no other radio is connected to.
TEST_F(ProgrammingFromFileTest, TheUsersDisconnectEndsItAll) {
  StartConnected();
  for (const bool role : {false, true}) {
    OnCommand("SKIP NONE", [this] { Click("tbr_Disconnect"); });
    if (role) {
      ExpectBox("REMOTE").Reply(Answer::Yes);
      ASSERT_TRUE(Click("cmdRemote"));
    } else {
      Program(validLine + "ADDR 1");
    }
    Run(Seconds(60));
    EXPECT_EQ(SentCommands().back(), "CLOS");
    ExpectIdle();
    EXPECT_FALSE(Enabled("tbr_Login"));
    ASSERT_TRUE(Connect());
  }
}

TEST_F(ProgrammingFromFileTest, APulledPlugBringsOneBoxHoweverLongItStaysUp) {
  StartConnected();
  OnCommand("SKIP NONE", [this] { Unplug(); });
  ExpectBox("Click Cancel to quit, OK to ignore.").StaysUp(Seconds(10));
  ExpectBox("Error").Containing("The selected COM port is not available.");
  Program(validLine + "ADDR 1");
  ExpectIdle();
}

// Nor does a link that comes back in the middle belong to anybody else before the end.
TEST_F(ProgrammingFromFileTest, ALinkThatIsBackInTheMiddleIsHeld) {
  StartConnected();
  OnCommand("SKIP NONE", [this] { Unplug(); });
  ExpectBox("Click Cancel to quit, OK to ignore.").Do([this] { Plug(); });
  OnCommand("ADDR 1", [this] { EXPECT_FALSE(Enabled("tbr_Login") || Enabled("mnuSendText")); });
  Program(validLine + "ADDR 1");
  EXPECT_EQ(SentCommands().back(), "ADDR 1");
  ExpectIdle();
  EXPECT_TRUE(Enabled("tbr_Login") && Enabled("mnuSendText"));
}

TEST_F(ProgrammingFromFileTest, ARadioThatDeniesEverythingIsSentEverything) {
  StartConnected({.Password = "abcd"});
  Program(validLine + "ADDR 1");
  EXPECT_THAT(FileCommands(), ElementsAre("ADDR 1"));
  EXPECT_THAT(Received(), HasSubstr("ACCESS DENIED"));
  EXPECT_THAT(Received(), Not(HasSubstr("PROGRAMMED OK")));
  ExpectIdle();
}

}  // namespace
}  // namespace quillmark
