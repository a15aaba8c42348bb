#include <algorithm>

#include "config/config_bench.h"

namespace quillmark {
namespace {

using sim::Expectation;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class QuickConfigTest : public ConfigBench {
 public:
  static std::string Question(const std::string& first, const std::string& address = "1000") {
    return first + "\r\n\r\nBAUD: 9600\r\n\r\nADDR: " + address + "\r\n\r\nPWR: 30 dBm";
  }
  Expectation& ExpectQuestion(const std::string& title) {
    return ExpectBox(title).With(Buttons::YesNo).Reply(Answer::Yes);
  }
  // What was sent behind the default set.
  std::string RoleBytes() {
    std::string sent = Sent();
    std::string set;
    for (const std::string& line : defaultSet) set += line + "\r";
    EXPECT_THAT(sent, StartsWith(set));
    return sent.substr(std::min(set.size(), sent.size()));
  }
  // When the last byte of a command had arrived, in ms behind that of the command before it.
  std::vector<long> Pauses(const std::vector<std::string>& commands) {
    std::vector<long> pauses;
    Duration last{};
    for (const std::string& command : commands) {
      const std::size_t at = Sent().rfind(command + "\r");
      const Duration time = Line().Log().ToRadio().Times.at(at);
      if (last != Duration::zero()) pauses.push_back((time - last) / Milliseconds(1));
      last = time;
    }
    return pauses;
  }
};

TEST_F(QuickConfigTest, EachRoleSendsItsCommandsAndLeavesTheRadioInIt) {
  const struct {
    const char *Button, *Title, *First, *Sent, *Holds;
    int DotsBehind;  // the default set's
    int Takes;       // from the arrival of BAUD to the end, in steps of 10 ms
  } cases[] = {
      {"cmdMaster", "MASTER", "Program radio as MASTER...",
       "MODE M\rADDR 1000\rPWR 30\rBAUD 9600\rSAF ON\r",
       "M|1000|30 dBm|9600 8N1|ON|0|00000000|-120|", 5, 59},
      {"cmdRemote", "REMOTE", "Program radio as REMOTE...",
       "MODE R\rADDR 1000\rPWR 30\rBAUD 9600\r", "R|1000|30 dBm|9600 8N1|OFF|0|00000000|-120|", 4,
       59},
      {"cmdRepeater", "REPEATER", "Program radio as REPEATER...",
       "MODE X\rADDR 1000\rPWR 30\rBAUD 9600\rXADDR 7\r",
       "X|1000|30 dBm|9600 8N1|OFF|7|00000000|-120|", 4, 74},
      {"cmdSubRemote", "REPEATER", "Program radio as a REMOTE connecting through a REPEATER...",
       "MODE R\rADDR 1000\rPWR 30\rBAUD 9600\rXMAP 80000004\rXPRI 2\r",
       "R|1000|30 dBm|9600 8N1|OFF|0|80000004|-120|", 4, 184},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Button);
    StartConnected({.Revision = "3.2.0", .Mode = 'X'});
    Radio().Program("xrssi", "-60");
    ExpectQuestion(each.Title).Saying(Question(each.First));
    const std::string button = each.Button;
    if (button == "cmdMaster") {
      ExpectQuestion("Repeater ?").Saying("Will the MASTER have a REPEATER in the system ?");
    } else if (button == "cmdRepeater") {
      ExpectInput("Enter XADDR")
          .Saying(
              "Enter this repeater's XADDR. (This is the number used by the remotes that are "
              "to associate with this repeater.)")
          .Offering("1")
          .Type("7");
    } else if (button == "cmdSubRemote") {
      ExpectWindow("frmSimpleXMAP").Do([&] {
        EXPECT_TRUE(Main().DirectPortMode);
        EXPECT_EQ(Text("lblXMap"), "Current XMAP selection: 00000000");
        for (const char* box : {"2", "5", "5", "31"}) Click(std::string("chkXADDR_") + box);
        EXPECT_EQ(Text("lblXMap"), "Current XMAP selection: 80000004");
        // A double click, whose second half comes behind the pauses.
        After(Milliseconds(100), [this] { Click("cmdSet"); });
        EXPECT_TRUE(Click("cmdSet"));
        EXPECT_EQ(Text("frmSimpleXMAP"), "XPRI Setting");
        EXPECT_EQ(
            Text("lblMain"),
            "Select the AP/REPEATER from the XMAP that you want this remote to associate with "
            "first.");
        EXPECT_TRUE(Checked("chkXADDR_1"));
        EXPECT_FALSE(Click("chkXADDR_1"));  // not in the map
        EXPECT_TRUE(Click("chkXADDR_31"));
        EXPECT_FALSE(Checked("chkXADDR_1"));
        EXPECT_TRUE(Click("chkXADDR_2"));
        EXPECT_TRUE(Click("cmdSet"));
      });
    }
    OnCommand("MODE M", [&] { EXPECT_FALSE(Enabled("frQuick")); });
    ASSERT_TRUE(Click(each.Button));
    const Duration baud = Line().Log().ToRadio().Times.at(Sent().rfind("BAUD 9600\r") + 9);
    EXPECT_EQ((Now() - baud) / Milliseconds(10), each.Takes);
    EXPECT_EQ(Port().Input(), "");
    EXPECT_EQ(RoleBytes(), each.Sent);
    EXPECT_EQ(Text("txtTerm"),
              "\r\n\r\n\r\n\r\n\r\nPROGRAMMING." +
                  std::string(defaultSet.size() + static_cast<std::size_t>(each.DotsBehind), '.'));
    std::string holds;
    for (const char* word : {"mode", "addr", "pwr", "baud", "saf", "xaddr", "xmap", "xrssi"}) {
      holds += Radio().Setting(word) + "|";
    }
    EXPECT_EQ(holds, each.Holds);
    const auto pauses =
        Pauses({"MODE " + std::string(1, *each.Holds), "ADDR 1000", "PWR 30", "BAUD 9600"});
    EXPECT_THAT(pauses, ::testing::ElementsAre(250, 100, 100));
    EXPECT_TRUE(Shared().RefreshRequested);
    ExpectIdle();
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(QuickConfigTest, TheValuesAreThoseOfTheFrame) {
  StartConnected();
  Edit("cmbBaud", "115200");
  Slide("sldPwr", 20);
  const struct {
    const char *Typed, *Sent;
    bool Refused;
  } cases[] = {{"01000", "ADDR 1000\r", false},
               {"abc", "ADDR 0\r", true},
               {"70000", "ADDR 70000\r", true},
               {" 12x", "ADDR 12\r", true}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Typed);
    Edit("txtNewADDR", each.Typed);
    ExpectQuestion("REMOTE").Saying("Program radio as REMOTE...\r\n\r\nBAUD: 115200\r\n\r\nADDR: " +
                                    std::string(each.Typed) + "\r\n\r\nPWR: 20 dBm");
    ClearLog();
    ASSERT_TRUE(Click("cmdRemote"));
    EXPECT_EQ(RoleBytes(), "MODE R\r" + std::string(each.Sent) + "PWR 20\rBAUD 115200\r");
    ASSERT_TRUE(Refresh());
  }
  ClearLog();
  for (const char* number : {"SN 00123456", "n/a", "SN and a text that is no number"}) {
    Main().At(SettingId::SerialNumber).Text = number;
    ExpectBox("REMOTE").Reply(Answer::No);
    ASSERT_TRUE(Click("cmdRemote"));
    const bool known = number == std::string("SN 00123456");
    ExpectWarned(std::string("This clears all settings of ") + (known ? number : "the radio") +
                 " first.");
  }
  EXPECT_EQ(Sent(), "");
}

TEST_F(QuickConfigTest, TheRepeatersAddress) {
  const struct {
    const char* Name;
    std::vector<std::string> Answers;
    std::vector<Answer> Sure;  // to the question about 0
    const char* Sent;
  } cases[] = {
      {"cancelled", {""}, {}, ""},
      {"bad ones first", {"32", "-1", "x", "1.5"}, {}, "XADDR 1.5\r"},
      {"nought", {"0", "0"}, {Answer::No, Answer::Yes}, "XADDR 0\r"},
      {"highest", {"31"}, {}, "XADDR 31\r"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.Name);
    const auto before = static_cast<std::ptrdiff_t>(Boxes().size());
    StartConnected();
    ExpectQuestion("REPEATER");
    for (const std::string& answer : each.Answers) ExpectInput("Enter XADDR").Type(answer);
    for (const Answer sure : each.Sure) {
      ExpectBox("XADDR")
          .Saying(
              "XADDR 0 is the default setting for a Master radio.\r\n\r\nAre you sure you want "
              "to use an XADDR of 0 ?")
          .Reply(sure);
    }
    if (each.Answers.size() == 4) {
      for (int bad = 0; bad < 3; ++bad) {
        ExpectBox("Invalid XADDR").Saying("XADDR is a number between 0 and 31.");
      }
    }
    if (each.Answers.front().empty()) {
      ExpectBox(ProgramTitle).Saying("REPEATER radio programmed WITH default XADDR of 0");
    }
    ASSERT_TRUE(Click("cmdRepeater"));
    EXPECT_EQ(RoleBytes(), "MODE X\rADDR 1000\rPWR 30\rBAUD 9600\r" + std::string(each.Sent));
    EXPECT_EQ(Port().Input(), "");
    ExpectIdle();
    const auto asked = std::ranges::find(Boxes().begin() + before, Boxes().end(), "Enter XADDR",
                                         &sim::ScriptedUser::Seen::Title);
    ASSERT_NE(asked, Boxes().end());
    EXPECT_EQ(asked->Hint, "Radios take 0 to 31. Factory value: 0.");
    EXPECT_EQ(asked->Objection, each.Answers.size() == 4 ? "XADDR 32: radios take 0 to 31" : "");
    CheckExpectations();
    ASSERT_TRUE(Quit());
    Restart();
  }
}

TEST_F(QuickConfigTest, NoKeepAliveAndNoReadWhileABoxIsUp) {
  StartConnected();
  ExpectQuestion("MASTER");
  ExpectBox("Repeater ?").StaysUp(Seconds(600)).Reply(Answer::No);
  const int reads = ReadCycles();
  ASSERT_TRUE(Click("cmdMaster"));
  EXPECT_EQ(RoleBytes(), "MODE M\rADDR 1000\rPWR 30\rBAUD 9600\r");
  EXPECT_EQ(ReadCycles(), reads);
  EXPECT_THAT(Text("txtTerm"), HasSubstr(std::string(defaultSet.size() + 6, '.')));
}

TEST_F(QuickConfigTest, ThePictureOfRepeaters) {
  StartConnected();
  ASSERT_TRUE(Click("cmdRptHelp1"));
  EXPECT_EQ(Text("frmSimpleRptrSetup"), "Store-and-Forward Repeater Setup");
  ASSERT_TRUE(Click("cmdRptHelp2"));
  ExpectQuestion("REPEATER");
  ExpectWindow("frmSimpleXMAP").Do([&] {
    ExpectWindow("frmSimpleRptrSetup").Do([](Form& picture) { picture.Unload(); });
    EXPECT_TRUE(Click("cmdHelp"));
    EXPECT_TRUE(Click("chkXADDR_5"));
    EXPECT_TRUE(Click("cmdSet"));
    EXPECT_TRUE(Click("cmdSet"));  // box 1, though not in the map
  });
  ASSERT_TRUE(Click("cmdSubRemote"));
  EXPECT_THAT(Sent(), ::testing::EndsWith("XMAP 00000020\rXPRI 1\r"));
  EXPECT_TRUE(WindowOpen("frmSimpleRptrSetup"));
  ASSERT_TRUE(Quit());
  EXPECT_FALSE(WindowOpen("frmSimpleRptrSetup"));
}

}  // namespace
}  // namespace quillmark
