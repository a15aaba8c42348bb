#include "sim/bench.h"

namespace quillmark {
namespace {

class PortWatchTest : public sim::Bench {};

TEST_F(PortWatchTest, AFailedConnectTellsCauseAndCure) {
  Start();
  EXPECT_TRUE(Visible("FirstSteps"));
  Faults().SilentFrom = 1;
  ASSERT_TRUE(Click("tbr_Connect"));
  EXPECT_FALSE(Visible("FirstSteps"));
  EXPECT_EQ(Text("ConnectFailed"),
            "No answer from the radio on Com1: is it powered, is the cable right, is it the "
            "radio's diagnostic port?");
  EXPECT_TRUE(Visible("ConnectFailed"));
  // The device is missing; its notice shows the box again.
  Unplug();
  for (const char* click : {"tbr_Connect", "ConnectFailed"}) {
    ExpectBox("Error").Saying(
        "The selected COM port is not available. Please select another port.");
    ASSERT_TRUE(Click(click));
    EXPECT_EQ(Text("ConnectFailed"), "/dev/ttyV1: No such file or directory.");
  }
  Plug();
  Faults() = {};
  Run(Seconds(2));
  EXPECT_FALSE(Visible("ConnectFailed"));
}

TEST_F(PortWatchTest, APortThatIsBackOffersTheConnect) {
  StartConnected();
  // It is back while the box is up.
  ExpectBox("Click Cancel to quit, OK to ignore.").Do([&] {
    EXPECT_FALSE(Visible("PortBack"));
    Run(Milliseconds(1500));
    Plug();
    Run(Milliseconds(1500));
    EXPECT_TRUE(Visible("PortBack"));
  });
  Unplug();
  Run(Seconds(5));
  const auto shownAfter = [&](void (PortWatchTest::*act)()) {
    (this->*act)();
    Run(Milliseconds(1100));
    return Visible("PortBack");
  };
  EXPECT_FALSE(shownAfter(&PortWatchTest::Unplug));
  EXPECT_TRUE(shownAfter(&PortWatchTest::Plug));
  EXPECT_EQ(Text("PortBack"), "Radio's port is back. Connect");
  Port().SetCommPort(2);
  Run(Seconds(2));
  EXPECT_FALSE(Visible("PortBack"));
  Port().SetCommPort(1);
  ExpectBox("Error");
  Unplug();
  ASSERT_TRUE(Click("tbr_Connect"));
  Run(Seconds(5));
  EXPECT_TRUE(shownAfter(&PortWatchTest::Plug));
  ASSERT_TRUE(Click("PortBack"));
  EXPECT_TRUE(Port().PortOpen());
  EXPECT_FALSE(Visible("PortBack"));
  // A user who lets the radio go needs no offer.
  Run(Seconds(20));
  ASSERT_TRUE(Click("tbr_Disconnect"));
  Run(Seconds(10));
  EXPECT_FALSE(shownAfter(&PortWatchTest::Unplug));
  EXPECT_FALSE(shownAfter(&PortWatchTest::Plug));
}

}  // namespace
}  // namespace quillmark
