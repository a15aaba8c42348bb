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

#include "e2e/program_fixture.h"
#include "e2e/pty_pair.h"
#include "pictures/report.h"

namespace quillmark {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// How a command has ended.
struct Ended {
  int Code = -1;
  std::string Out;
  std::string Err;
};

class Quillmark : public Program {
 protected:
  static QString Binary() { return QCoreApplication::applicationDirPath() + "/quillmark"; }
  QStringList OnRadio(const QStringList& arguments) const {
    return (arguments.contains("--port") ? QStringList() : QStringList{"--port", radio.link}) +
           arguments;
  }
  static Ended Finish(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(100'000));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
  }
  Ended Run(const QStringList& arguments, const std::string& typed = "") const {
    QProcess process;
    process.start(Binary(), OnRadio(arguments));
    process.write(typed.data(), static_cast<qint64>(typed.size()));
    process.closeWriteChannel();
    return Finish(process);
  }
  // Ends it with the signal when the radio has been sent that line.
  Ended Interrupt(int signal, const std::string& line, const QStringList& arguments) const {
    const std::size_t before = radio.Lines().size();
    QProcess process;
    process.start(Binary(), OnRadio(arguments));
    EXPECT_TRUE(process.waitForStarted());
    const QDeadlineTimer patience(30'000);
    while (radio.Lines().find(" s: " + line + "\n", before) == std::string::npos) {
      if (patience.hasExpired() || process.waitForFinished(5)) break;
    }
    // One that has ended already has no number: 0 would be this program and its neighbours.
    const auto number = static_cast<pid_t>(process.processId());
    EXPECT_GT(number, 0) << "it ended before " << line;
    if (number > 0) kill(number, signal);
    return Finish(process);
  }
};

TEST_F(Quillmark, EachEndHasItsCodeAndOneLineThatTellsCauseAndCure) {
  radio.Start({"--password", "abcd"});
  std::ofstream(home.filePath("bad.txt").toStdString()) << "PWR 45\nHOPTIME 7\n";
  std::ofstream(home.filePath("text.txt").toStdString()) << "Dear reader\n";
  const QString bad = home.filePath("bad.txt");
  const QString text = home.filePath("text.txt");
  struct Row {
    QStringList Arguments;
    std::string Typed;
    int Code;
    std::string Out;
    std::string Err;
  };
  const std::vector<Row> rows{
      {{"read", "PWR", "hop time"}, "", 0, "Power Level  PWR 30 dBm\nHop Time     HOPTIME 7\n", ""},
      {{}, "", 2, "", "A subcommand is required. See \"quillmark --help\".\n"},
      {{"read", "powr"}, "", 2, "", "no setting \"powr\". The nearest are: pwr (Power Level), "},
      {{"set", "pwr=99"}, "", 2, "", "PWR 99: radios take 20 to 30 dBm. Nothing was sent."},
      {{"set", "own=a\rpass none"}, "", 2, "", "own: the value has control characters."},
      {{"program", bad}, "", 2, "", "\"--yes\" does it without a question.\n"},
      {{"--port", "/dev/none", "read"}, "", 3, "", "There is no device /dev/none. Plug in the"},
      {{"set", "pwr=25"}, "", 4, "", "Log in first with \"quillmark login\".\n"},
      {{"login", "--secret-fd", "0"}, "abcx\n", 4, "", "The radio has refused the password."},
      {{"login", "--secret-fd", "0"}, "abcde\n", 2, "", "A password has 1 to 4 characters"},
      {{"login", "--secret-fd", "0"}, "abcd\n", 0, "", ""},
      {{"set", "Power Level=25"}, "", 0, "PWR 30 dBm  25    PWR 25 dBm     taken\n", ""},
      {{"set", "pwr=99", "--force"}, "", 1, "refused  INVALID ENTRY\n", "PWR 99 refused"},
      {{"check", bad},
       "",
       5,
       "configuration, 2 settings\nline 1: PWR 45, radios take",
       "not sound"},
      {{"diff", text}, "", 5, "", "is no configuration of a radio"},
      {{"diff", bad},
       "",
       1,
       "Power Level  PWR 45  PWR 25 dBm\n",
       "1 of 2 settings is different.\n"},
      {{"program", bad, "--yes"}, "", 5, "", "its header is missing. \"--force\" sends it"},
      {{"preset", "2", "--yes"}, "", 5, "", "Preset 2 is empty.\n"},
      {{"logout"}, "", 0, "", ""},
      {{"code", "--secret-fd", "0"}, "17\n", 4, "", "The radio has refused the code."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.Arguments.join(' ').toStdString());
    const Ended ended = Run(row.Arguments, row.Typed);
    EXPECT_EQ(ended.Code, row.Code);
    EXPECT_THAT(ended.Out, row.Out.empty() ? testing::Matcher<std::string>(IsEmpty())
                                           : testing::Matcher<std::string>(HasSubstr(row.Out)));
    EXPECT_THAT(ended.Err, HasSubstr(row.Err));
    EXPECT_EQ(std::ranges::count(ended.Err, '\n'), row.Code == 0 ? 0 : 1) << ended.Err;
    EXPECT_THAT(ended.Out + ended.Err, Not(HasSubstr("abc")));
  }
  // The user's preferences are theirs.
  EXPECT_FALSE(std::filesystem::exists(IniPreferenceStore::UsualFile()));
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
  for (const QJsonValue& setting : settings) {
    ExpectFits(setting.toObject(), inSettings["additionalProperties"].toObject());
  }
  const QJsonObject power{{"caption", "Power Level"},
                          {"value", "30"},
                          {"unit", "dBm"},
                          {"raw", "PWR 30 dBm"},
                          {"changed", false}};
  EXPECT_EQ(settings["pwr"].toObject(), power);
}

TEST_F(Quillmark, WhatWasProgrammedIsNoDifferenceAndASignalLeavesNothingBehind) {
  radio.Start({"--mode", "M"});
  const QString file = home.filePath("saved.txt");
  const Ended cut = Interrupt(SIGTERM, "hoptime", {"save", file});
  EXPECT_EQ(cut.Code, 6) << cut.Err;
  EXPECT_THAT(QDir(home.path()).entryList({"*saved*"}, QDir::Files | QDir::Hidden), IsEmpty());

  EXPECT_EQ(Run({"save", file}).Code, 0);
  EXPECT_EQ(Run({"set", "hoptime=28", "own=B\xC3\xB6rg"}).Code, 0);
  EXPECT_THAT(Run({"diff", file}).Out,
              HasSubstr("Owner's Name  OWN Quillmark SS  OWN B\xC3\xB6rg\n"));
  const Ended programmed = Run({"program", file, "--yes"});
  EXPECT_EQ(programmed.Code, 0) << programmed.Err;
  EXPECT_THAT(programmed.Err, HasSubstr("Hop Time: HOPTIME 28 becomes HOPTIME 7"));
  const Ended same = Run({"diff", file});
  EXPECT_EQ(same.Code, 0) << same.Out << same.Err;
  EXPECT_EQ(same.Out, "");

  // The next command finds the port free.
  EXPECT_EQ(Interrupt(SIGINT, "mode", {"read"}).Code, 6);
  const Ended half = Interrupt(SIGINT, "MODE M", {"program", file, "--yes"});
  EXPECT_EQ(half.Code, 7);
  EXPECT_THAT(half.Err,
              HasSubstr("The radio may hold only a part. What it held before is kept in"));
  EXPECT_EQ(Run({"read", "pwr"}).Code, 0);
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
