// What radio and file can do while an upgrade is under way.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "firmware/upgrade_bench.h"

namespace quillmark {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* lost =
    "There was an error communicating with the radio. Please reconnect and try again";
constexpr const char* surely = "\r\nARE YOU SURE?\r\n";

class UpgradeSessionTest : public UpgradeBench {
 public:
  void FailOnce(const std::filesystem::path& file) {
    ExpectFailed();
    ExpectNeedsSoftware();
    Upgrade(file);
    ExpectConnected();
    ClearLog();
  }
};

TEST_F(UpgradeSessionTest, RadiosThatDoNotGoIntoTheirLoader) {
  const std::string attempt = "\x1B\r\n" + Bursts(4);
  const std::string twice = "PROGRAM\rYES\r" + attempt + attempt;
  std::string thirty;
  for (int i = 0; i < 30; ++i) thirty += attempt;
  const struct {
    const char* Name;
    const char* Password = "";
    int SilentFrom = 0;
    const char* Question = "";  // another reply to PROGRAM
    bool Prompt = true;
    std::optional<Answer> Erase{};
    std::string Sent;
    Duration Takes{};
  } cases[] = {
      {.Name = "the user says no", .Erase = Answer::No, .Sent = "PROGRAM\rNO\r"},
      {.Name = "silence", .SilentFrom = 1, .Sent = "PROGRAM\r", .Takes = Seconds(3)},
      {.Name = "a damaged question",
       .Question = "\r\nARE YOU SUQE?\r\n",
       .Sent = "PROGRAM\r",
       .Takes = Seconds(3)},
      {.Name = "a question without a prompt",
       .Question = surely,
       .Prompt = false,
       .Erase = Answer::No,
       .Sent = "PROGRAM\rNO\r",
       .Takes = Seconds(3)},
      {.Name = "back at its prompt",
       .Password = "abcd",
       .Question = surely,
       .Erase = Answer::Yes,
       .Sent = twice},
      {.Name = "dead after YES",
       .SilentFrom = 2,
       .Erase = Answer::Yes,
       .Sent = "PROGRAM\rYES\r" + thirty + "CLOS\r"},
  };
  StartConnected();
  const auto file = Image();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    UseRadio({.Password = c.Password});
    Faults().SilentFrom = c.SilentFrom;
    if (*c.Question != '\0') Radio().SetReply("program", c.Question, c.Prompt);
    if (c.Erase) ExpectErase(*c.Erase);
    const Duration began = Now();
    Upgrade(file);
    EXPECT_EQ(Sent(), c.Sent);
    if (c.Takes > Duration::zero()) {
      EXPECT_EQ((Now() - began) / Milliseconds(10), c.Takes / Milliseconds(10));
    }
    const bool disconnected = c.Sent.ends_with("CLOS\r");
    EXPECT_EQ(Enabled("mnuSendText") && Enabled("tbr_TransmitTextFile"), !disconnected);
    EXPECT_EQ(Port().Settings(), "19200,N,8,1");
    EXPECT_FALSE(WindowOpen("frmProgram"));
    EXPECT_EQ(Text("txtTerm") == "Error. Please reconnect.", disconnected);
  }
}

TEST_F(UpgradeSessionTest, SmallLargeAndForeignFiles) {
  const std::string foreign = "This Does not appear to be a valid firmware file.";
  const std::string sound = sim::FirmwareImage("3.2.1", 512);
  const struct {
    std::string Content;
    int Questions;
    bool Succeeds;
  } cases[] = {{"", 2, false},
               {sound.substr(0, 59), 1, false},
               {sound, 0, true},
               {sim::FirmwareImage("3.2.1", 514), 0, true},
               {sim::FirmwareImage("3.2.1", 1024), 0, true},
               {sim::FirmwareImage("3.2.1", 1600), 0, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Content.size());
    StartInLoader();
    for (int i = 0; i < c.Questions; ++i) {
      ExpectBox("Error")
          .Containing(c.Questions == 2 ? foreign : "shorter than its length says")
          .Reply(Answer::Yes);
    }
    if (c.Succeeds) {
      ExpectSuccess();
    } else {
      ExpectFailed();
      ExpectNeedsSoftware();
    }
    Upgrade(Save("new.s28", c.Content));
    EXPECT_THAT(Sent(),
                StartsWith(LoaderPrelude() + c.Content + (c.Succeeds ? "EXIT\r" : "CLOS\r")));
    ExpectConnected();
    ASSERT_TRUE(Click("tbr_Disconnect"));
  }
}

// A driver that refuses the session's rate once must not leave the line at the loader's.
TEST_F(UpgradeSessionTest, TheLinkIsBackThoughTheDriverRefuses) {
  ConnectTo({});
  ExpectErase(Answer::Yes);
  ExpectSuccess().Do([this] { Port().FailSettings(9); });
  Upgrade(Image(512));
  ExpectConnected();
}

TEST_F(UpgradeSessionTest, LeftJustAfterTheLoaderHasFinished) {
  StartInLoader();
  std::string image = sim::FirmwareImage("3.2.1", 4096);
  image.append(8192, '\n');
  const auto file = Save("new.s28", image);
  const auto whenDone = [&](const std::string& button) {
    OnCommand("PROGRAM", [this, button] {
      After(Milliseconds(800), [this, button] {
        EXPECT_TRUE(Click(button) && (button != "Command1" || Click("cmdYes")));
      });
    });
  };
  whenDone("Command1");
  ExpectSuccess();
  Upgrade(file);
  ExpectConnected();
  // The image was sound, but nobody can tell the radio to run it.
  ASSERT_TRUE(Click("tbr_Disconnect"));
  StartInLoader();
  whenDone("tbr_Disconnect");
  ExpectBox(ProgramTitle).Saying("The port is not open").With(Icon::Exclamation);
  ExpectBox("Error").Saying(lost).With(Icon::Exclamation);
  Upgrade(file);
  EXPECT_THAT(Sent(), EndsWith("\nCLOS\r"));
  EXPECT_EQ(Port().Settings(), "19200,N,8,1");
  EXPECT_FALSE(Enabled("mnuSendText"));
}

TEST_F(UpgradeSessionTest, AFileThatChangesWhileItIsSent) {
  const std::string image = sim::FirmwareImage("3.2.1", 16384);
  const auto file = Image(16384);
  const struct {
    const char* Name;
    std::function<void()> Act;
    std::string Sent;
    const char* Details;
  } cases[] = {
      {"shrinks", [&] { std::filesystem::resize_file(file, 10000); }, image.substr(0, 10000),
       "The file ended after 10000 of 16384 bytes. The radio answered: SEND S-RECORDS"},
      {"vanishes", [&] { std::filesystem::remove(file); }, image,
       "16384 bytes were sent, in 32 blocks. The radio answered: PROGRAMMED OK"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Name);
    Image(16384);
    StartInLoader();
    WhileSending(c.Act);
    const bool whole = c.Sent == image;
    if (whole) {
      ExpectSuccess();
    } else {
      ExpectFailed();
      ExpectNeedsSoftware();
    }
    const std::size_t before = Boxes().size();
    Upgrade(file);
    EXPECT_EQ(Boxes()[before + 1].Details, c.Details);
    EXPECT_THAT(Sent(), StartsWith(LoaderPrelude() + c.Sent + (whole ? "EXIT\r" : "CLOS\r")));
    ExpectConnected();
    ASSERT_TRUE(Click("tbr_Disconnect"));
  }
  // Gone before it was opened again.
  Image(16384);
  ConnectTo({});
  ExpectErase(Answer::Yes);
  OnCommand("YES", [&] { std::filesystem::remove(file); });
  ExpectBox(ProgramTitle).Saying("No such file or directory").With(Icon::Exclamation);
  ExpectFailed();
  ExpectNeedsSoftware();
  Upgrade(file);
  EXPECT_THAT(Sent(), HasSubstr("\r" + Bursts(20) + "ERASE\rCLOS\r"));
  ExpectConnected();
}

TEST_F(UpgradeSessionTest, TwentyMegabytes) {
  StartInLoader();
  // While a large file is checked, the windows live.
  bool alive = false;
  ExpectOpenFile(DialogTitle)
      .Choose(Save("faulty.s28", sim::FirmwareImage("3.2.1", 20'000'000) + "S"))
      .Do([&] { Events().Post([&] { alive = true; }); });
  ExpectBox("Error").Containing("is faulty").Do([&] { EXPECT_TRUE(alive); }).Reply(Answer::No);
  ASSERT_TRUE(Click("mnuSendText"));
  OnCommand("PROGRAM", [&] {
    After(Seconds(2), [&] {
      EXPECT_EQ(Text("lblLeft"), "22528 of 20000000 bytes, 1735 s left");
      EXPECT_TRUE(Click("Command1") && Click("cmdYes"));
    });
  });
  FailOnce(Image(20'000'000));
}

}  // namespace
}  // namespace quillmark
