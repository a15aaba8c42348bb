#include <gmock/gmock.h>

#include <string>

#include "window_bench.h"

namespace quillmark {
namespace {

using PropertiesTest = WindowBench;

TEST_F(PropertiesTest, AnotherPortIsStoredAndConnected) {
  Sockets().At(3).Is = sim::VirtualSockets::State::Forbidden;
  Start();
  InWindow("mnuProperties", "frmProperties", [&] {
    EXPECT_EQ(Text("frmProperties"), "Setup");
    EXPECT_EQ(Text("SelectPort"),
              "Please select the Com Port you would like to use for diagnostic communication with "
              "the Quillmark radio:");
    EXPECT_EQ(As<ListBox>("cboPort").Items().size(), 16U);
    EXPECT_EQ(Text("cboPort"), "Com1");
    EXPECT_EQ(Text("lblDevice"), "/dev/ttyV1 (virtual line)");
    const auto& notes = As<ListBox>("cboPort").ItemNotes();
    EXPECT_EQ(notes.at(0), (ItemNote{"/dev/ttyV1 (virtual line)", false}));
    EXPECT_EQ(notes.at(1), (ItemNote{"", true}));
    EXPECT_FALSE(Click("frmOrvalent.tbr_Connect"));  // the owner is blocked
    EXPECT_TRUE(Edit("cboPort", "Com3"));
    EXPECT_TRUE(Edit("cboPort", "Com5"));
    EXPECT_EQ(Text("lblDevice"), "No serial port has this number.");
    EXPECT_TRUE(Click("cmdCancel"));
  });
  EXPECT_EQ(Port().CommPort(), 1);
  EXPECT_EQ(Stored("Properties", "CommPort"), "");
  EXPECT_FALSE(Port().PortOpen());

  // The same port and OK: stored, and connected.
  InWindow("mnuProperties", "frmProperties", [&] { EXPECT_TRUE(Click("cmdOK")); });
  EXPECT_EQ(Stored("Properties", "CommPort"), "1");
  EXPECT_FALSE(Shared().PortChanged);
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 1; }));
  // While connected: read again.
  InWindow("mnuProperties", "frmProperties", [&] { EXPECT_TRUE(Click("cmdOK")); });
  EXPECT_TRUE(Shared().RefreshRequested);
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
}

TEST_F(PropertiesTest, ChangingTheOpenPortAsksFirst) {
  const std::string warning =
      "Warning: The COM port is already open. Changing the COM port will close the current "
      "session,\rpossibly interupting a connection with a radio.\r\rDo you wish to continue and "
      "switch COM ports?";
  sim::SimRadio other({.Mode = 'M'});
  sim::SimLine otherLine(other);
  Sockets().Plug(2, otherLine);
  Start();
  ASSERT_TRUE(Connect());
  const auto change = [&](const char* port, Answer answer) {
    ExpectBox("Warning").Saying(warning).With(Icon::Exclamation).With(Buttons::YesNo).Reply(answer);
    InWindow("mnuProperties", "frmProperties", [&] {
      EXPECT_TRUE(Edit("cboPort", port));
      EXPECT_TRUE(Click("cmdOK"));
      EXPECT_TRUE(!WindowOpen("frmProperties") || CloseWindow("frmProperties"));
    });
  };
  change("Com2", Answer::No);
  EXPECT_EQ(Port().CommPort(), 1);
  EXPECT_TRUE(Port().PortOpen());
  EXPECT_FALSE(Shared().RefreshRequested);

  change("Com2", Answer::Yes);
  EXPECT_EQ(Stored("Properties", "CommPort"), "2");
  EXPECT_TRUE(Main().At(SettingId::Mode).Stale());  // it is that of the radio before
  ASSERT_TRUE(RunUntil([&] { return ReadCycles() == 2; }));
  EXPECT_EQ(Text("Mode"), "MODE M");
  EXPECT_FALSE(Main().At(SettingId::Mode).Stale());

  // One that does not open: the error, the old number, the window still up, nothing stored.
  ExpectBox(ProgramTitle).Saying("No such file or directory").With(Icon::Exclamation);
  change("Com9", Answer::Yes);
  EXPECT_EQ(Port().CommPort(), 2);
  EXPECT_EQ(Stored("Properties", "CommPort"), "2");
  EXPECT_FALSE(Port().PortOpen());
  EXPECT_TRUE(Visible("imgNotConnected"));  // the window shows no session either
  EXPECT_FALSE(Enabled("tbr_Disconnect"));
}

}  // namespace
}  // namespace quillmark
