#include "qt/serial/qt_serial_port.h"

#include <gmock/gmock.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "e2e/pty_pair.h"
#include "qt/base/qt_event_loop.h"
#include "qt/serial/port_trouble.h"

namespace quillmark {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

class SerialLine : public testing::Test {
 protected:
  SerialLine() {
    port.OnComm = [this] {
      codes.push_back(port.CommEvent());
      if (taking) arrived += port.Input();
    };
  }

  bool Until(const std::function<bool()>& done, double seconds = 3) {
    return WaitUntil(events, Seconds(seconds), done);
  }
  // Whatever is on its way has arrived by now.
  void Settle() {
    WaitUntil(events, Milliseconds(60), [] { return false; });
  }
  void ExpectTrouble(const std::string& path, const std::string& text, const std::string& cure) {
    device = path;
    try {
      port.SetPortOpen(true);
      ADD_FAILURE() << path << " could be opened";
    } catch (const SerialError& error) {
      EXPECT_EQ(error.Number, SerialError::PortNotAvailable);
      EXPECT_THAT(error.what(), HasSubstr(text));
      EXPECT_THAT(error.Details, HasSubstr(cure));
    }
    EXPECT_FALSE(port.PortOpen());
  }
  // "cat" may be one program of many names.
  static std::string ProgramBehindCat() {
    const auto found = QStandardPaths::findExecutable("cat").toStdString();
    return std::filesystem::canonical(found).filename().string();
  }
  static std::vector<gid_t> TakeOffGroups() {
    std::vector<gid_t> groups(static_cast<std::size_t>(getgroups(0, nullptr)));
    getgroups(static_cast<int>(groups.size()), groups.data());
    setgroups(0, nullptr);
    return groups;
  }
  static double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
  }

  QtEventLoop events;
  PtyPair line;
  std::string device = line.Path();
  QtSerialPort port{events, [this](int) { return device; }};
  std::vector<int> codes;
  std::string arrived;
  bool taking = true;
};

TEST_F(SerialLine, CarriesEveryByteBothWays) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  line.Send("from before");
  port.SetPortOpen(true);
  EXPECT_THROW(port.SetCommPort(2), SerialError);
  port.Output(all);
  EXPECT_GE(port.OutBufferCount(), 200u);
  EXPECT_TRUE(Until([&] { return port.OutBufferCount() == 0; }));
  EXPECT_EQ(line.Received(), all);
  line.Send(all);
  EXPECT_TRUE(Until([&] { return arrived.size() >= all.size(); }));
  EXPECT_EQ(arrived, all);

  line.Send("unread");
  port.SetPortOpen(false);
  EXPECT_THROW(port.Output("x"), SerialError);
  line.Send("while closed");
  port.SetPortOpen(true);
  arrived.clear();
  Settle();
  EXPECT_EQ(arrived, "");
  line.Send("new");
  EXPECT_TRUE(Until([&] { return arrived == "new"; })) << arrived;
}

TEST_F(SerialLine, TellsWhyAPortCannotBeOpened) {
  const QTemporaryDir folder;
  const std::string plain = folder.filePath("plain").toStdString();
  std::ofstream(plain) << "not a port";
  ExpectTrouble("", "No device stands behind Com1", "choose another port");
  ExpectTrouble("/dev/ttyNONE", "/dev/ttyNONE is not there", "Plug in the serial adapter");
  ExpectTrouble(plain, "is not a serial device", "section \"Ports\"");
  ExpectTrouble(folder.path().toStdString(), "is not a serial device", "section \"Ports\"");
  ExpectTrouble("/dev/null", "cannot be used", "does not work as a serial port");

  QtSerialPort other(events, [this](int) { return line.Path(); });
  other.SetPortOpen(true);
  ExpectTrouble(line.Path(), "in use by another program", "It may be a second console");
  other.SetPortOpen(false);
  port.SetPortOpen(true);
  EXPECT_TRUE(port.PortOpen());
}

// Another user's rights, which a test that runs as root has to put on.
TEST_F(SerialLine, TellsTheCureForAMissingRight) {
  const uid_t user = geteuid();
  if (user != 0) GTEST_SKIP() << "needs root, who can give the device away";
  const gid_t group = getegid();
  const std::vector<gid_t> groups = TakeOffGroups();
  const struct {
    const char* Group;
    mode_t Mode;
    const char* Cure;
  } cases[] = {
      {"dialout", 0660, "sudo usermod -aG dialout nobody\n\nand then log out and in again."},
      {"uucp", 0660, "sudo usermod -aG uucp nobody\n\nand then log out and in again."},
      {"dialout", 0600, "Ask the administrator of this computer for access."},
      {"shadow", 0660, "Ask the administrator of this computer for access."},
  };
  for (const auto& c : cases) {
    const struct group* owner = getgrnam(c.Group);
    ASSERT_NE(owner, nullptr) << c.Group;
    ASSERT_EQ(chown(line.Path().c_str(), 0, owner->gr_gid), 0);
    ASSERT_EQ(chmod(line.Path().c_str(), c.Mode), 0);
    ASSERT_TRUE(setegid(65534) == 0 && seteuid(65534) == 0);
    const auto trouble = TroubleBeforeOpening(line.Path());
    ASSERT_TRUE(seteuid(user) == 0 && setegid(group) == 0);
    ASSERT_TRUE(trouble);
    EXPECT_EQ(trouble->Text, "You have no right to use " + line.Path() + ".");
    EXPECT_THAT(trouble->Details, EndsWith(c.Cure));
    EXPECT_EQ(trouble->Details.find("sudo") != std::string::npos, *c.Cure == 's');
  }
  ASSERT_EQ(setgroups(groups.size(), groups.data()), 0);
}

// Programs of the old school leave nothing but their number.
TEST_F(SerialLine, RespectsTheLockFilesOfOtherPrograms) {
  const std::string lock = "/var/lock/LCK..pts_" + line.Path().substr(9);
  const auto cleared = qScopeGuard([&] {
    port.SetPortOpen(false);
    std::filesystem::remove(lock);
  });
  QProcess living;
  living.start("cat", QStringList());
  ASSERT_TRUE(living.waitForStarted());
  const std::string process = std::to_string(living.processId());
  for (const std::string& text : {process + "\n", "      " + process + " cat root\n"}) {
    std::ofstream(lock) << text;
    std::string details = "The program ";
    details.append(ProgramBehindCat()).append(" (process ").append(process).append(") is using ");
    details.append(line.Path()).append("; its lock file is ").append(lock).append(". It may be");
    ExpectTrouble(line.Path(), "in use by another program", details);
  }
  living.kill();
  living.waitForFinished();
  // The program behind them has ended: one is taken away, the other is left to the person.
  ExpectTrouble(line.Path(), "in use by another program", "Delete the file " + lock + " and");
  std::ofstream(lock) << process + "\n";
  port.SetPortOpen(true);
  EXPECT_TRUE(port.PortOpen());
}

TEST_F(SerialLine, AnnouncesEachArrivalUnlessOneIsPending) {
  port.SetPortOpen(true);
  taking = false;
  line.Send("one");
  EXPECT_TRUE(Until([&] { return codes.size() == 1; }));
  // A handler that took nothing does not end reception.
  line.Send("two");
  EXPECT_TRUE(Until([&] { return codes.size() == 2; }));
  EXPECT_EQ(port.Input(), "onetwo");

  // Input that was taken meanwhile raises nothing.
  line.Send("three");
  events.Sleep(Milliseconds(60));
  EXPECT_EQ(port.Input(), "three");
  Settle();
  EXPECT_THAT(codes, ElementsAre(comm::Receive, comm::Receive));
}

TEST_F(SerialLine, DrainsBeforeAChangeOfBaudAndBeforeClosing) {
  port.SetPortOpen(true);
  const Duration start = events.Now();
  port.Output(std::string(480, 'x'));
  port.SetSettings("115200,N,8,1");
  const Duration drained = events.Now() - start;
  EXPECT_GE(drained, Milliseconds(249));
  EXPECT_LE(drained, Milliseconds(400));
  EXPECT_EQ(port.OutBufferCount(), 0u);
  EXPECT_EQ(port.Settings(), "115200,N,8,1");
  EXPECT_THROW(port.SetSettings("fast"), SerialError);
  EXPECT_EQ(line.Received(), std::string(480, 'x'));
  // Nobody reads: more than the line holds, and half a second is all the patience there is.
  port.Output(std::string(100'000, 'y'));
  const Duration closing = events.Now();
  port.SetPortOpen(false);
  EXPECT_LE(events.Now() - closing, Milliseconds(900));
  EXPECT_FALSE(port.PortOpen());
}

TEST_F(SerialLine, KeepsTheLastMegabyteAndSaysOnceThatMoreIsLost) {
  port.SetPortOpen(true);
  taking = false;
  std::string sent;
  while (sent.size() < SerialPort::InputLimit + 300'000) sent += std::to_string(sent.size()) + ",";
  for (std::size_t at = 0; at < sent.size(); at += 4096) line.Send(sent.substr(at, 4096));
  ASSERT_TRUE(Until([&] { return std::count(codes.begin(), codes.end(), 1008) > 0; }));
  Settle();
  const std::string kept = port.Input();
  EXPECT_EQ(kept.size(), SerialPort::InputLimit);
  EXPECT_EQ(kept, sent.substr(sent.size() - kept.size()));
  EXPECT_EQ(std::count(codes.begin(), codes.end(), comm::ReceiveBufferOverflow), 1);
}

TEST_F(SerialLine, APortThatVanishesIsClosedAndReportedOnce) {
  port.SetPortOpen(true);
  line.Send("last words");
  ASSERT_TRUE(Until([&] { return arrived == "last words"; }));
  codes.clear();
  line.HangUp();
  ASSERT_TRUE(Until([&] { return !codes.empty(); }));
  EXPECT_FALSE(port.PortOpen());
  EXPECT_THROW(port.Output("CLOS\r"), SerialError);
  EXPECT_EQ(port.OutBufferCount(), 0u);
  const double before = ProcessorSeconds();
  WaitUntil(events, Milliseconds(300), [] { return false; });
  EXPECT_LE(ProcessorSeconds() - before, 0.02);
  EXPECT_THAT(codes, ElementsAre(comm::PortVanished));

  const PtyPair again;
  device = again.Path();
  port.SetPortOpen(true);
  EXPECT_TRUE(port.PortOpen());
}

TEST_F(SerialLine, AnErrorOfALivingDeviceDoesNotCloseIt) {
  const OtherProgram other(line.Path());
  port.SetPortOpen(true);
  other.SetLineMode(true);
  line.Send("\x04");
  Settle();
  other.SetLineMode(false);
  line.Send("still here");
  EXPECT_TRUE(Until([&] { return arrived == "still here"; })) << arrived;
  port.Output("and well");
  EXPECT_TRUE(Until([&] { return port.OutBufferCount() == 0; }));
  EXPECT_EQ(line.Received(), "and well");
  EXPECT_EQ(std::count(codes.begin(), codes.end(), comm::PortVanished), 0);
}

TEST_F(SerialLine, ADeviceThatOnlyFailsIsClosedInTheEnd) {
  const OtherProgram other(line.Path());
  port.SetPortOpen(true);
  other.SetLineMode(true);
  const double before = ProcessorSeconds();
  line.Send(std::string(100, '\x04'));
  EXPECT_TRUE(Until([&] { return !port.PortOpen(); }));
  Settle();
  EXPECT_LE(ProcessorSeconds() - before, 0.2);
  EXPECT_THAT(codes, ElementsAre(comm::PortVanished));
}

}  // namespace
}  // namespace quillmark
