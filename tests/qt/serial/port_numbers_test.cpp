#include "qt/serial/port_numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <fstream>
#include <set>

#include "qt/store/ini_preference_store.h"
#include "qt/store/run_preferences.h"

namespace quillmark {
namespace {

// A machine whose ports come and go, over several runs of the program.
class PortsOfAMachine : public testing::Test {
 protected:
  PortNumbers::Surroundings Surroundings() {
    return {[this] { return found; },
            [this](const std::string& path) { return nodes.count(path) != 0; },
            [this] { return now; }, [this](int number) { return number == inUse; }};
  }
  void Plug(const std::string& device, bool usb, const std::string& byId = {}) {
    found.push_back({device, byId.empty() ? device : byId, "Adapter " + device, usb});
    nodes.insert({device, byId});
  }
  void UnplugAll() {
    found.clear();
    nodes.clear();
  }
  std::vector<std::string> Shown() {
    std::vector<std::string> shown;
    for (const PortDescription& port : PortNumbers(store, Surroundings()).Ports()) {
      if (!port.Device.empty()) shown.push_back((port.Present ? "" : "-") + port.Device);
    }
    return shown;
  }

  QTemporaryDir folder;
  IniPreferenceStore store{folder.filePath("preferences.ini").toStdString()};
  std::vector<FoundPort> found;
  std::set<std::string> nodes;
  std::int64_t now = 1'000'000;
  int inUse = 0;
};

using testing::ElementsAre;

TEST_F(PortsOfAMachine, UsbAdaptersComeFirstAndNumbersStick) {
  Plug("/dev/ttyS0", false);
  Plug("/dev/ttyUSB1", true, "/by-id/b");
  Plug("/dev/ttyUSB0", true, "/by-id/a");
  EXPECT_THAT(Shown(), ElementsAre("/by-id/a", "/by-id/b", "/dev/ttyS0"));
  UnplugAll();
  Plug("/dev/ttyUSB0", true, "/by-id/b");
  Plug("/dev/ttyUSB2", true, "/by-id/c");
  EXPECT_THAT(Shown(), ElementsAre("-/by-id/a", "/by-id/b", "-/dev/ttyS0", "/by-id/c"));
  PortNumbers numbers(store, Surroundings());
  EXPECT_EQ(numbers.DeviceOf(1), "/by-id/a");
  EXPECT_EQ(numbers.DeviceOf(2), "/by-id/b");
  EXPECT_EQ(numbers.DeviceOf(17), "");
}

TEST_F(PortsOfAMachine, APathPutInByHandIsUsedAsItIs) {
  store.Write("Ports", "Com2", "/tmp/radio");
  nodes.insert("/tmp/radio");
  Plug("/dev/ttyS0", false);
  EXPECT_THAT(Shown(), ElementsAre("/dev/ttyS0", "/tmp/radio"));
  EXPECT_EQ(PortNumbers(store, Surroundings()).DeviceOf(2), "/tmp/radio");
}

TEST_F(PortsOfAMachine, ANamedDeviceGetsANumberAndKeepsIt) {
  Plug("/dev/ttyS0", false);
  for (int run = 1; run <= 2; ++run) {
    PortNumbers numbers(store, Surroundings());
    EXPECT_EQ(numbers.NumberFor("/dev/pts/77"), 2);
    EXPECT_EQ(numbers.NumberFor("/dev/ttyS0"), 1);
    EXPECT_EQ(numbers.DeviceOf(2), "/dev/pts/77");
  }
}

TEST_F(PortsOfAMachine, ANamedDeviceKeepsItsNumberThoughItCannotBeStored) {
  const auto plain = folder.filePath("plain").toStdString();
  std::ofstream{plain} << "no folder";
  IniPreferenceStore nowhere(plain + "/preferences.ini");
  Plug("/dev/ttyS0", false);
  PortNumbers numbers(nowhere, Surroundings());
  EXPECT_EQ(numbers.NumberFor("/dev/pts/77"), 2);
  EXPECT_EQ(numbers.DeviceOf(2), "/dev/pts/77");
  EXPECT_EQ(numbers.Ports()[1].Device, "/dev/pts/77");
}

TEST_F(PortsOfAMachine, WhenAllAreTakenTheOneAbsentLongestIsGivenAgain) {
  for (int day = 1; day <= PortNumbers::Count; ++day) {
    now += 86'400;
    // The third is plugged in once more at the end, so the first is absent longest.
    UnplugAll();
    if (day == PortNumbers::Count) Plug("/dev/ttyUSB3", true);
    Plug("/dev/ttyUSB" + std::to_string(day), true);
    Shown();
  }
  UnplugAll();
  inUse = 1;
  Plug("/dev/ttyNEW", true);
  EXPECT_EQ(PortNumbers(store, Surroundings()).NumberFor("/dev/ttyNEW"), 2);
  EXPECT_EQ(Shown().front(), "-/dev/ttyUSB1");
  EXPECT_EQ(PortNumbers(store, Surroundings()).NumberFor("/dev/ttyOTHER"), 4);
}

// "OK" in the preferences window writes all that it shows.
TEST_F(PortsOfAMachine, APortNamedForOneRunGivesWayToTheUsersChoiceAlone) {
  store.Write("Properties", "CommPort", "2");
  RunPreferences named(
      store, {{"Properties", "CommPort", "7"}, {"Preferences", "ConnectOnLaunch", "True"}});
  EXPECT_EQ(named.Read("Properties", "CommPort", "1"), "7");
  named.Write("Properties", "CommPort", "7");
  named.Write("Preferences", "ConnectOnLaunch", "True");
  EXPECT_EQ(store.Read("Properties", "CommPort", "1"), "2");
  EXPECT_EQ(store.Read("Preferences", "ConnectOnLaunch", "none"), "none");
  for (const char* chosen : {"3", "7"}) {
    named.Write("Properties", "CommPort", chosen);
    EXPECT_EQ(store.Read("Properties", "CommPort", "1"), chosen);
    EXPECT_EQ(named.Read("Properties", "CommPort", "1"), chosen);
  }
}

}  // namespace
}  // namespace quillmark
