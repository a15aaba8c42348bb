#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "file_text.h"
#include "odd_settings.h"
#include "restore/frmRestore.h"
#include "sim/bench.h"

namespace quillmark {

// A session with the store and restore window: it is opened on a connected radio, the first read is
// waited for, and the acts run while it is up.
class RestoreBench : public sim::Bench {
 public:
  // Opens the window, waits until it is idle, does the acts, closes it.
  void InWindow(const std::function<void()>& acts) {
    InWindowAtOnce([this, acts] {
      ASSERT_TRUE(RunUntil([this] { return Window().ReadIdle; }, Seconds(90)));
      acts();
    });
  }
  // The same without the wait.
  void InWindowAtOnce(const std::function<void()>& acts) {
    ExpectWindow("frmRestore").Do([this, acts](Form& form) {
      shown = std::static_pointer_cast<frmRestore>(form.shared_from_this());
      acts();
      if (shown->Loaded()) CloseAndWait();
    });
    ASSERT_TRUE(Click("mnuConfigRestore"));
    // A tick may have to end before.
    RunUntil([this] { return shown != nullptr && !shown->Loaded(); }, Seconds(120));
    shown.reset();
    ExpectPortGivenBack();
  }

  frmRestore& Window() { return *shown; }
  std::string Current(SettingId id) { return Window().At(id).Current.Text(); }

  void CloseAndWait() {
    Click("CloseButton");
    EXPECT_TRUE(RunUntil([this] { return !shown->Loaded(); }, Seconds(90)));
  }

  // What holds after each way out.
  void ExpectPortGivenBack() {
    EXPECT_FALSE(WindowOpen("frmRestore"));
    EXPECT_FALSE(SecondPort().PortOpen());
    EXPECT_TRUE(Main().Enabled());
    EXPECT_FALSE(Application().Talk().Turns.Taken());
  }

  bool WaitForRead() {
    return RunUntil([this] { return shown->ReadIdle && !shown->Timer1.Enabled(); }, Seconds(90));
  }

  // What a read shows that begins with empty rows.
  std::string ReadAnew() {
    for (RestoreRowControls& row : Window().Rows) row.Current.Text = "n/a";
    EXPECT_TRUE(Click("tbr_Refresh"));
    EXPECT_TRUE(WaitForRead());
    return RowTexts(true);
  }

  std::filesystem::path InScratch(const std::string& name) const { return ScratchFolder() / name; }
  std::filesystem::path Write(const std::string& name, const std::string& text) {
    std::ofstream(InScratch(name), std::ios::binary) << text;
    return InScratch(name);
  }
  void Load(const std::filesystem::path& path) {
    ExpectOpenFile("Configuration File Selection").Choose(path);
    EXPECT_TRUE(Click("tbr_OpenConfig"));
  }
  void LoadText(const std::string& text) { Load(Write("load.txt", text)); }
  std::string Save() {
    ExpectSaveFile("Radio Configuration Save").Choose(InScratch("window.txt"));
    EXPECT_TRUE(Click("tbr_SaveConfig"));
    return FileText(InScratch("window.txt"));
  }

  // A line for each row: its word and the text of one column.
  std::string RowTexts(bool current) {
    std::string text;
    for (RestoreRowControls& row : Window().Rows) {
      text += std::string(row.Row.Word) + "=" + (current ? row.Current : row.New).Text() + "\n";
    }
    return text;
  }
  // The words of the rows for which `holds`.
  std::string Words(const std::function<bool(RestoreRowControls&)>& holds) {
    std::string words;
    for (RestoreRowControls& row : Window().Rows) {
      if (holds(row)) words += std::string(words.empty() ? "" : " ") + row.Row.Word;
    }
    return words;
  }
  std::string EnabledBoxes() {
    return Words([](auto& row) { return row.Check.Enabled(); });
  }
  std::string Ticks() {
    return Words([](auto& row) { return row.Check.Checked(); });
  }

  static std::vector<std::string> Split(const std::string& text, char at) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
      if (c == at) {
        parts.emplace_back();
      } else {
        parts.back() += c;
      }
    }
    return parts;
  }

  // Connects a radio whose every setting differs from its factory value, where mode and revision
  // have it.
  void StartOdd(sim::SimRadioOptions options) {
    UseRadio(std::move(options));
    ProgramOddValues(Radio());
    Start();
    ASSERT_TRUE(Connect());
  }
  void EndSession() {
    ASSERT_TRUE(Quit());
    Restart();
  }

 private:
  std::shared_ptr<frmRestore> shown;
};

}  // namespace quillmark
