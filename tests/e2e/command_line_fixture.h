#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "e2e/program_fixture.h"

namespace quillmark {

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

// A command, and how it ends.
struct Row {
  QStringList Arguments;
  std::string Typed;
  int Code;
  std::string Out;
  std::string Err;
};

class QuillmarkEnds : public Quillmark {
 protected:
  QuillmarkEnds() {
    std::ofstream(bad.toStdString()) << "PWR 45\nHOPTIME 7\n";
    std::ofstream(text.toStdString()) << "Dear reader\n";
  }
  // Each with its code, and one line that tells cause and cure.
  void Expect(const std::vector<Row>& rows) const {
    for (const Row& row : rows) {
      SCOPED_TRACE(row.Arguments.join(' ').toStdString());
      const Ended ended = Run(row.Arguments, row.Typed);
      EXPECT_EQ(ended.Code, row.Code);
      EXPECT_THAT(ended.Out, row.Out.empty()
                                 ? testing::Matcher<std::string>(testing::IsEmpty())
                                 : testing::Matcher<std::string>(testing::HasSubstr(row.Out)));
      EXPECT_THAT(ended.Err, testing::HasSubstr(row.Err));
      EXPECT_EQ(std::ranges::count(ended.Err, '\n'), row.Code == 0 ? 0 : 1) << ended.Err;
      EXPECT_THAT(ended.Out + ended.Err, testing::Not(testing::HasSubstr("abc")));
    }
    // The user's preferences are theirs.
    EXPECT_FALSE(std::filesystem::exists(IniPreferenceStore::UsualFile()));
  }
  const QString bad = home.filePath("bad.txt");
  const QString text = home.filePath("text.txt");
};

}  // namespace quillmark
