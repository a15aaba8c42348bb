// Radio after radio on one port, through the real program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <regex>

#include "e2e/program_fixture.h"

namespace quillmark {

namespace {

using testing::HasSubstr;
using testing::Not;

class Batch : public Program {
 protected:
  Batch() {
    Write("all.txt",
          "# With Firmware Version: 3.2.0\n"
          "UNIT ${unit}\nPWR ${Power}\nOWN ${name}\n");
  }
  void Write(const char* name, const std::string& text) const {
    std::ofstream(home.filePath(name).toStdString()) << text;
  }
  std::string Text(const char* name) const {
    QFile file(home.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
  }
  // The report without what each run has of its own.
  std::string Report() const {
    const std::regex own("(^|\n)[-0-9T:]+Z,[^,]*/radio,|[^,\n]*/[^,\n]*\\.txt");
    return std::regex_replace(Text("report.csv"), own, "$1");
  }
  void Begin(const QStringList& options = {}) {
    told.clear();
    batch.start(
        QCoreApplication::applicationDirPath() + "/quillmark",
        QStringList{"--port", radio.link, "batch", home.filePath("all.txt"), "--csv",
                    home.filePath("radios.csv"), "--report", home.filePath("report"), "--yes"} +
            options);
    ASSERT_TRUE(batch.waitForStarted());
  }
  // Until it has told that.
  void Await(const std::string& text) {
    const QDeadlineTimer patience(60'000);
    while (told.find(text) == std::string::npos && !patience.hasExpired()) {
      if (batch.state() == QProcess::NotRunning) break;
      batch.waitForReadyRead(20);
      told += batch.readAllStandardError().toStdString();
    }
    EXPECT_THAT(told, HasSubstr(text));
  }
  void AwaitLine(const std::string& line) const {
    const QDeadlineTimer patience(60'000);
    while (radio.Lines().find(line) == std::string::npos && !patience.hasExpired()) {
      QThread::msleep(5);
    }
  }
  void Radio(const char* serial) {
    radio.Stop();
    QFile::remove(home.filePath("radio.log"));
    radio.Start({"--mode", "M", "--serial", serial});
  }
  int End() {
    EXPECT_TRUE(batch.state() == QProcess::NotRunning || batch.waitForFinished(60'000));
    told += batch.readAllStandardError().toStdString();
    return batch.exitStatus() == QProcess::NormalExit ? batch.exitCode() : -1;
  }
  // One that has ended already has no number: 0 would be this program and its neighbours.
  void Interrupt() const {
    const auto number = static_cast<pid_t>(batch.processId());
    ASSERT_GT(number, 0) << told;
    kill(number, SIGINT);
  }

  QProcess batch;
  std::string told;
};

constexpr const char* heading = "time,port,serial,unit,firmware,result,refused,copy\n";

TEST_F(Batch, TakesRadioAfterRadioAndGoesOnWhereItWas) {
  Write("radios.csv",
        "Serial;unit;name;power\n1;20001;B\xC3\xB6rg;25\n2;20002;;25\n3;20003;x;99\n");
  struct Row {
    const char* Serial;
    const char* Told;
  };
  const std::vector<Row> rows{
      {"00000001", "00000001: done. Next radio."},
      {"00000002", "00000002: There is no value for ${name}."},
      {"00000003", "00000003: Line 3, PWR: radios take 20 to 30 dBm."},
      {"00000004", "radios.csv has no row for this radio."},
  };
  Begin({"--count", "4"});
  for (const Row& row : rows) {
    Radio(row.Serial);
    Await(row.Told);
    const bool sent = radio.Lines().find("20001") != std::string::npos;
    EXPECT_EQ(sent, &row == &rows.front()) << radio.Lines();
  }
  EXPECT_EQ(End(), 1) << told;
  const std::string first = heading + std::string("00000001,20001,3.2.0,done,,\n");
  EXPECT_THAT(Report(), testing::StartsWith(first));
  EXPECT_THAT(Report(), testing::EndsWith("00000004,4,3.2.0,bad input,,\n"));
  EXPECT_EQ(std::ranges::count(Text("report.jsonl"), '\n'), 4);

  // A line that was cut is taken off; the radio that is done is not programmed again.
  std::ofstream(home.filePath("report.csv").toStdString(), std::ios::app) << "2026-";
  Write("radios.csv", "serial,unit,name,power\n1,20001,x,25\n2,20002,\"a, b\",25\n");
  Begin({"--count", "2", "--resume"});
  Radio("00000001");
  Await("00000001: done before.");
  EXPECT_THAT(radio.Lines(), Not(HasSubstr("20001")));
  Radio("00000002");
  EXPECT_EQ(End(), 0) << told;
  EXPECT_THAT(Report(), testing::EndsWith("\n00000002,20002,3.2.0,done,,\n"));
  EXPECT_THAT(radio.Lines(), HasSubstr("OWN a, b\n"));
}

TEST_F(Batch, AnInterruptLetsTheRadioComeToItsEndAndASecondOneCutsIt) {
  Write("radios.csv", "serial,unit,name,power\n1,20001,x,25\n2,20002,x,25\n");
  Radio("00000001");
  Begin();
  AwaitLine("UNIT 20001");
  Interrupt();
  EXPECT_EQ(End(), 6) << told;
  EXPECT_EQ(Report(), heading + std::string("00000001,20001,3.2.0,done,,\n"));

  Radio("00000002");
  Begin({"--resume"});
  AwaitLine("UNIT 20002");
  Interrupt();
  Await("finished first");
  Interrupt();
  EXPECT_EQ(End(), 7) << told;
  EXPECT_THAT(Report(), testing::EndsWith("\n00000002,2,3.2.0,incomplete,,\n"));
}

}  // namespace
}  // namespace quillmark
