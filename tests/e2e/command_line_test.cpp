// The program on the command line: a process on the simulated radio, as a person or a script has
// it.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <csignal>

#include "e2e/command_line_fixture.h"
#include "e2e/pty_pair.h"
#include "pictures/report.h"

namespace quillmark {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST_F(QuillmarkEnds, WithoutARadio) {
  Expect({
      {{}, "", 2, "", "A subcommand is required. See \"quillmark --help\".\n"},
      {{"read", "powr"}, "", 2, "", "no setting \"powr\". The nearest are: pwr (Power Level), "},
      {{"set", "pwr=99"}, "", 2, "", "PWR 99: radios take 20 to 30 dBm. Nothing was sent."},
      {{"set", "own=a\rpass none"}, "", 2, "", "own: the value has control characters."},
      {{"program", bad}, "", 2, "", "\"--yes\" does it without a question.\n"},
      {{"login", "--secret-fd", "0"}, "abcde\n", 2, "", "A password has 1 to 4 characters"},
      {{"read"}, "", 3, "", "There is no device "},
      {{"check", bad},
       "",
       5,
       "configuration, 2 settings\nline 1: PWR 45, radios take",
       "not sound"},
      {{"diff", text}, "", 5, "", "is no configuration of a radio"},
      {{"preset", "2", "--yes"}, "", 5, "", "Preset 2 is empty.\n"},
      {{"role", "master", "--addr", "99999"}, "", 2, "", "Nothing was sent."},
      {{"role", "sub-remote", "--addr", "7", "--xmap", "3", "--yes"},
       "",
       2,
       "",
       "the map lacks it"},
      {{"history", "../x"}, "", 5, "", "There are no copies of such a radio."},
      {{"restore", "1@2026-02-30"}, "", 2, "", "A date is written as 2026-11-23"},
  });
}

TEST_F(QuillmarkEnds, AtARadioWithAPassword) {
  radio.Start({"--password", "abcd"});
  Expect({
      {{"set", "pwr=25"}, "", 4, "", "Log in first with \"quillmark login\".\n"},
      {{"login", "--secret-fd", "0"}, "abcx\n", 4, "", "The radio has refused the password."},
      {{"login", "--secret-fd", "0"}, "abcd\n", 0, "", ""},
      {{"logout"}, "", 0, "", ""},
      {{"code", "--secret-fd", "0"}, "17\n", 4, "", "The radio has refused the code."},
  });
}

TEST_F(QuillmarkEnds, AtARadio) {
  radio.Start();
  Expect({
      {{"read", "PWR", "hop time"}, "", 0, "Power Level  PWR 30 dBm\nHop Time     HOPTIME 7\n", ""},
      {{"diff", bad},
       "",
       1,
       "Power Level  PWR 45  PWR 30 dBm\n",
       "1 of 2 settings is different.\n"},
  });
}

TEST_F(QuillmarkEnds, OfAChange) {
  radio.Start();
  Expect({
      {{"set", "Power Level=25"}, "", 0, "PWR 30 dBm  25    PWR 25 dBm     taken\n", ""},
      {{"set", "pwr=99", "--force"}, "", 1, "refused  INVALID ENTRY\n", "PWR 99 refused"},
  });
}

TEST_F(QuillmarkEnds, OfARole) {
  radio.Start();
  const Ended given =
      Run({"role", "sub-remote", "--addr", "1234", "--xmap", "1,3", "--xpri", "3", "--yes"});
  EXPECT_EQ(given.Code, 0) << given.Err;
  EXPECT_THAT(radio.Lines(), HasSubstr(" s: XMAP 0000000A\n"));
  EXPECT_THAT(radio.Lines(), HasSubstr(" s: XPRI 3\n"));
}

TEST_F(QuillmarkEnds, OfAWatch) {
  radio.Start();
  Expect({
      {{"signal", "--csv", "--seconds", "2"}, "", 0, "time,dbm\n20", ""},
      {{"quality", "--seconds", "1"}, "", 0, "Zone 8\n", ""},
  });
}

// Firmware revision and mode, as in "3.2.0R".
class QuillmarkRows : public Quillmark, public testing::WithParamInterface<std::string> {};

TEST_P(QuillmarkRows, AreThoseOfTheMainWindow) {
  const QString radioIs = QString::fromStdString(GetParam());
  radio.Start({"--revision", radioIs.left(5), "--mode", radioIs.right(1)});
  const Ended read = Run({"read"});
  EXPECT_EQ(read.Code, 0) << read.Err;
  Prefer("True");
  Launch();
  ASSERT_TRUE(Until([this] { return readCycles == 1; }));
  EXPECT_EQ(read.Out, RowTable(console->Main()));
}

INSTANTIATE_TEST_SUITE_P(OfEachRadio, QuillmarkRows,
                         testing::Values("1.9.9M", "2.0.0R", "3.2.0X", "3.2.0M"));

void ExpectFits(const QJsonObject& object, const QJsonObject& schema) {
  QStringList required;
  for (const auto& key : schema["required"].toArray()) required << key.toString();
  required.sort();
  EXPECT_EQ(object.keys().join(' ').toStdString(), required.join(' ').toStdString());
  EXPECT_EQ(schema["properties"].toObject().keys().join(' ').toStdString(),
            required.join(' ').toStdString());
}

TEST_F(Quillmark, JsonFitsItsSchema) {
  QFile file(QUILLMARK_DOCS "/quillmark-read.schema.json");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QJsonObject schema = QJsonDocument::fromJson(file.readAll()).object();
  radio.Start({"--revision", "3.2.0"});
  const Ended read = Run({"--json", "read"});
  ASSERT_EQ(read.Code, 0) << read.Err;
  const auto json = QJsonDocument::fromJson(QByteArray::fromStdString(read.Out)).object();
  ExpectFits(json, schema);
  EXPECT_EQ(json["revision"].toString(), "3.2.0");
  const auto inSettings = schema["properties"].toObject()["settings"].toObject();
  const QJsonObject settings = json["settings"].toObject();
  for (const auto& setting : settings) {
    ExpectFits(setting.toObject(), inSettings["additionalProperties"].toObject());
  }
  const QJsonObject power{{"caption", "Power Level"},
                          {"value", "30"},
                          {"unit", "dBm"},
                          {"raw", "PWR 30 dBm"},
                          {"changed", false}};
  EXPECT_EQ(settings["pwr"].toObject(), power);
}

TEST_F(Quillmark, WhatWasSavedIsNoDifference) {
  radio.Start({"--mode", "M"});
  const QString file = home.filePath("saved.txt");
  EXPECT_EQ(Run({"save", file}).Code, 0);
  const Ended same = Run({"diff", file});
  EXPECT_EQ(same.Code, 0) << same.Out << same.Err;
  EXPECT_EQ(same.Out, "");
}

TEST_F(Quillmark, WhatWasProgrammedIsNoDifference) {
  radio.Start();
  const QString file = home.filePath("three.txt");
  std::ofstream(file.toStdString()) << "MODE M\nHOPTIME 28\nOWN B\xF6rg\n";
  const Ended programmed = Run({"program", file, "--yes", "--force"});
  EXPECT_EQ(programmed.Code, 0) << programmed.Err;
  EXPECT_THAT(programmed.Err, HasSubstr("Hop Time: HOPTIME 7 becomes HOPTIME 28\n"));
  EXPECT_THAT(Run({"diff", file}).Out, IsEmpty());
}

TEST_F(Quillmark, ASaveThatIsEndedLeavesNoFile) {
  radio.Start({"--mode", "M"});
  const Ended cut = Interrupt(SIGTERM, "hoptime", {"save", home.filePath("saved.txt")});
  EXPECT_EQ(cut.Code, 6) << cut.Err;
  EXPECT_THAT(QDir(home.path()).entryList({"*saved*"}, QDir::Files | QDir::Hidden), IsEmpty());
}

TEST_F(Quillmark, ARunThatIsCutTellsWhereTheCopyIs) {
  radio.Start();
  const QString file = home.filePath("one.txt");
  std::ofstream(file.toStdString()) << "HOPTIME 28\n";
  const Ended half = Interrupt(SIGINT, "PWR 30", {"program", file, "--yes", "--force"});
  EXPECT_EQ(half.Code, 7) << half.Err;
  EXPECT_THAT(half.Err,
              HasSubstr("The radio may hold only a part. What it held before is kept in"));
  // The next command finds the port free.
  EXPECT_EQ(Run({"logout"}).Code, 0);
}

// A person at a terminal, in a session of their own.
class Prompted : public Quillmark {
 protected:
  void Ask(const QStringList& arguments) {
    process.setChildProcessModifier([this] {
      setsid();
      const int terminal = open(person.Path().c_str(), O_RDWR);
      ioctl(terminal, TIOCSCTTY, 0);
    });
    termios mode{};
    const int line = open(person.Path().c_str(), O_RDWR | O_NOCTTY);
    tcgetattr(line, &mode);
    mode.c_lflag |= ICANON | ECHO | ISIG;
    mode.c_iflag |= ICRNL;
    tcsetattr(line, TCSANOW, &mode);
    close(line);
    process.start(Binary(), OnRadio(arguments));
    ASSERT_TRUE(process.waitForStarted());
    const QDeadlineTimer patience(10'000);
    while (seen.find(": ") == std::string::npos && !patience.hasExpired()) {
      process.waitForFinished(5);
      seen += person.Received();
    }
    EXPECT_FALSE(Echoes());
  }
  bool Echoes() const {
    termios mode{};
    const int line = open(person.Path().c_str(), O_RDWR | O_NOCTTY);
    tcgetattr(line, &mode);
    close(line);
    return (mode.c_lflag & ECHO) != 0;
  }

  PtyPair person;
  QProcess process;
  std::string seen;
};

TEST_F(Prompted, ASecretIsTypedUnseen) {
  radio.Start({"--password", "abcd"});
  Ask({"login"});
  person.Send("abcd\r");
  const Ended ended = Finish(process);
  EXPECT_EQ(ended.Code, 0) << ended.Err;
  EXPECT_TRUE(Echoes());
  EXPECT_EQ(seen + person.Received(), "Password of the radio: \n");
  EXPECT_THAT(radio.Lines(), HasSubstr("pass ****\n"));
}

TEST_F(Prompted, AnInterruptAtThePromptGivesTheEchoBack) {
  radio.Start({"--password", "abcd"});
  Ask({"login"});
  // Keys that would leave the shell without its echo do nothing.
  person.Send("\x1C\x1A\x03");
  EXPECT_EQ(Finish(process).Code, 6);
  EXPECT_TRUE(Echoes());
  EXPECT_EQ(radio.Lines(), "");
}

TEST_F(Quillmark, NeedsNoWindowsAndNoReader) {
  QProcess list;
  list.start("ldd", {Binary()});
  EXPECT_THAT(Finish(list).Out,
              AllOf(HasSubstr("Qt6Core"), Not(HasSubstr("Qt6Widgets")), Not(HasSubstr("Qt6Gui"))));
  radio.Start();
  QProcess piped;
  piped.start("sh", {"-c", "\"$0\" --port \"$1\" read | true", Binary(), radio.link});
  EXPECT_THAT(Finish(piped).Err, IsEmpty());
}

}  // namespace
}  // namespace quillmark
