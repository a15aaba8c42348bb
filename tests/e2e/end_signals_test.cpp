#include "qt/end_signals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <csignal>

namespace quillmark {
namespace {

TEST(EndSignals, EachWayToEndAProgramIsAnEventAndALostReaderIsNone) {
  int ended = 0;
  const EndSignals handled([&] { ++ended; });
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const int before = ended;
    ASSERT_EQ(raise(signal), 0);
    EXPECT_EQ(ended, before) << "inside the handler of signal " << signal;
    QCoreApplication::processEvents();
    EXPECT_EQ(ended, before + 1) << "signal " << signal;
  }
  ASSERT_EQ(raise(SIGPIPE), 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(ended, 3);
}

}  // namespace
}  // namespace quillmark
