#pragma once

#include <gmock/gmock.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

#include "sim/bench.h"
#include "sim/firmware_image.h"

namespace quillmark {

// A user who upgrades the firmware on the virtual bench.
class UpgradeBench : public sim::Bench {
 public:
  static constexpr const char* DialogTitle = "Firmware Upgrade File Selection";

  UpgradeBench() { Random().Fixed = 0.5; }

  std::filesystem::path Save(const std::string& name, const std::string& content) const {
    auto path = ScratchFolder() / name;
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
    return path;
  }
  std::filesystem::path Image(std::size_t length = 4096) {
    return Save("new.s28", sim::FirmwareImage("3.2.1", length));
  }
  // While the first blocks go out.
  void WhileSending(const std::function<void()>& act) {
    OnCommand("ERASE", [this, act] {
      OnCommand("PROGRAM", [this, act] { After(Milliseconds(100), act); });
    });
  }
  void ExpectChoice(const std::filesystem::path& file) { ExpectOpenFile(DialogTitle).Choose(file); }
  void ExpectErase(Answer answer) { ExpectBox("Erase Current Firmware?").Reply(answer); }
  sim::Expectation& ExpectFailed() {
    return ExpectBox("Radio Error")
        .Saying("Radio programming FAILED.")
        .With(Icon::Exclamation)
        .With(Buttons::Ok);
  }
  sim::Expectation& ExpectSuccess() {
    return ExpectBox("Programmed OK")
        .Saying("Radio programming was successful.")
        .With(Icon::Exclamation)
        .With(Buttons::Ok);
  }
  // Told at a connect that finds the radio in its loader.
  void ExpectNeedsSoftware() { ExpectBox("Radio Error").Containing("This radio needs software!"); }

  // A radio that waits in its loader, connected.
  void StartInLoader(sim::SimRadioOptions options = {}) {
    options.StartInLoader = true;
    UseRadio(std::move(options));
    if (!WindowOpen("frmOrvalent")) Start();
    ExpectNeedsSoftware();
    ASSERT_TRUE(Click("tbr_Connect"));
    CheckExpectations();
    Run(Milliseconds(100));
    ClearLog();
  }
  // A running radio, connected and read.
  void ConnectTo(sim::SimRadioOptions options) {
    UseRadio(std::move(options));
    if (!WindowOpen("frmOrvalent")) Start();
    ASSERT_TRUE(Connect());
    ClearLog();
  }
  // Runs the whole flow, or what can be run of it.
  void Upgrade(const std::filesystem::path& file) {
    ExpectChoice(file);
    ASSERT_TRUE(Click("mnuSendText"));
    CheckExpectations();
  }
  // The link and the windows are as after any upgrade that has connected again.
  void ExpectConnected() {
    EXPECT_EQ(Port().Settings(), "19200,N,8,1");
    EXPECT_TRUE(Port().PortOpen());
    EXPECT_EQ(Text("pnl_Settings"), "Settings: 19200,N,8,1");
    EXPECT_TRUE(Enabled("mnuSendText"));
    EXPECT_TRUE(Enabled("tbr_TransmitTextFile"));
    EXPECT_FALSE(WindowOpen("frmProgram"));
    EXPECT_TRUE(Main().ShowCommStatus);
    EXPECT_TRUE(Shared().TransferStop);
    EXPECT_FALSE(Application().Talk().Turns.Taken());
  }

  static std::string Bursts(int count) {
    std::string bursts;
    for (int i = 0; i < count; ++i) bursts += "\r\r";
    return bursts;
  }
  // What goes out at the loader's rate up to the image.
  static std::string LoaderPrelude() { return "\r" + Bursts(20) + "ERASE\rPROGRAM\r"; }
};

}  // namespace quillmark
