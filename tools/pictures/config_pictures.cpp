// How the picture of a configuration file is taken.

#include <filesystem>
#include <fstream>
#include <memory>

#include "config/editor/frmConfigFile.h"
#include "pictures/window_pictures.h"
#include "start/console.h"

namespace quillmark {

namespace {

constexpr const char* sampleConfiguration =
    "#With Firmware Version:  77-1234A01 1.9.0  01Jan2009\r\n\r\nUNIT 12345\r\nOWN North ridge\r\n"
    "MODE R\r\nPWR 45 dBm\r\nBAUD 9600 8N1\r\nCTS 4\r\nRXTOT 1 minutes\r\nSLEEP ON\r\n"
    "ADDR 1000\r\nDTYPE ROOT\r\n";

}  // namespace

void WindowPictures::TakeConfigurationFile() {
  const std::filesystem::path file = FileOf("north-ridge.txt");
  std::ofstream(file) << sampleConfiguration;
  const auto show = [&] {
    const auto window = std::make_shared<frmConfigFile>(platform);
    if (!window->Open(file)) return;
    window->TabStrip.UserSelect(2);
    platform.Windows.ShowModal(window, console.Main());
  };
  TakeModal("frmConfigFile", "configuration-file", show);
  std::filesystem::remove(file);
}

}  // namespace quillmark
