#include "qt/serial/serial_line.h"

#include <gtest/gtest.h>

namespace quillmark {
namespace {

TEST(LineSettings, AreReadFromTheirText) {
  const struct {
    const char* Text;
    const char* Read;
  } cases[] = {{"19200,N,8,1", "19200N81"},
               {"115200,n,8,1", "115200N81"},
               {"300,E,7,2", "300E72"},
               {"", "-"},
               {"19200", "-"},
               {"19200,N,8,1 ", "-"},
               {"-1,N,8,1", "-"},
               {"19200,X,8,1", "-"},
               {"19200,N,9,1", "-"},
               {"19200,N,8,3", "-"},
               {"19200;N;8;1", "-"},
               {"99999999999,N,8,1", "-"}};
  for (const auto& c : cases) {
    const auto read = ReadLineSettings(c.Text);
    EXPECT_EQ(read ? std::to_string(read->Baud) + read->Parity + std::to_string(read->DataBits) +
                         std::to_string(read->StopBits)
                   : "-",
              c.Read)
        << c.Text;
  }
}

TEST(LinePace, HoldsWhatCannotHaveLeftYet) {
  LinePace pace;
  pace.Start(115200);
  const Duration start = Seconds(100);
  EXPECT_EQ(pace.Held(start), 0u);
  pace.Queue(start, 512);
  EXPECT_EQ(pace.Left(start), Duration(44444));
  EXPECT_EQ(pace.Held(start), 512u);
  pace.Queue(start + Milliseconds(10), 512);
  EXPECT_EQ(pace.Left(start), Duration(88888));
  EXPECT_EQ(pace.Held(start + Duration(88887)), 1u);
  EXPECT_EQ(pace.Held(start + Duration(88888)), 0u);
  pace.Queue(start + Seconds(1), 1);
  EXPECT_EQ(pace.Left(start + Seconds(1)), Duration(86));
}

}  // namespace
}  // namespace quillmark
