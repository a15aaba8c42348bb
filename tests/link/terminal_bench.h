#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "file_text.h"
#include "sim/bench.h"

namespace quillmark {

// The terminal of the main window, and a radio that may talk by itself.
class TerminalBench : public sim::Bench {
 public:
  // Connected, with an empty terminal.
  void StartEmpty(sim::SimRadioOptions options = {}) {
    StartConnected(std::move(options));
    Main().txtTerm.Text = "";
  }
  // The radio says something by itself, in one piece.
  void RadioSays(const std::string& text) {
    Radio().Unsolicited(Now(), text);
    Events().Sleep(Seconds(1));  // all of it has come before the program looks
    Run(Milliseconds(1));
  }
  std::filesystem::path OpenLog(const std::string& name) {
    std::filesystem::path path = ScratchFolder() / name;
    const std::string title = "Open a Communications Log File";
    ExpectSaveFile(title).Choose(path);
    if (!std::filesystem::exists(path)) {
      ExpectBox(title)
          .Saying(path.string() + " does not exist.\r\rCreate it?")
          .With(Buttons::YesNo)
          .Reply(Answer::Yes);
    }
    EXPECT_TRUE(Click("tbr_OpenLogFile"));
    return path;
  }
};

}  // namespace quillmark
