#include "qt/desktop/printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtGlobal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "pictures/report.h"
#include "qt/desktop/printed_report.h"
#include "qt/desktop/qt_desktop.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

std::vector<std::string> LinesOf(const std::string& text, int columns) {
  std::vector<std::string> lines;
  for (const QString& line : PrintedReport(text, "", "").Lines(columns)) {
    lines.push_back(line.toStdString());
  }
  return lines;
}

TEST(PrintedReport, BreaksLinesForThePaper) {
  const struct {
    const char* What;
    std::string Text;
    std::vector<std::string> Lines;
  } cases[] = {
      {"every line end, empty lines between, none at the ends",
       "\r\n\r\nA\rB\n\nC\r\n\r\n\r\n",
       {"A", "B", "", "C"}},
      {"at a blank", "OPTIONS ONE TWO THREE", {"OPTIONS ONE", "    TWO", "    THREE"}},
      {"without a blank nothing is lost",
       "ABCDEFGHIJKLMNOPQRSTUVW",
       {"ABCDEFGHIJKL", "    MNOPQRST", "    UVW"}},
      {"control characters are left out, the rest of Latin-1 is not",
       std::string("A\0B\x1B\x7F\x85\tC\xFC", 9),
       {"ABC\xC3\xBC"}},
  };
  for (const auto& c : cases) EXPECT_EQ(LinesOf(c.Text, 12), c.Lines) << c.What;
}

class Printing : public testing::Test {
 protected:
  Printing() {
    boxes.OnMessage = [this](const MessageBox& box) {
      told.push_back(box.Text + " " + box.Details);
      return Answer::Ok;
    };
    desktop.TellThrough(boxes);
  }
  fs::path In(const char* name) const { return fs::path(folder.path().toStdString()) / name; }
  static void Write(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
  }
  static std::string Read(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void Print(const fs::path& pdf) {
    desktop.Print({"", pdf}, In("config.txt"), "Radio \"Site\" \xFC");
  }
  static qsizetype PagesOf(const std::string& pdf) {
    return QString::fromLatin1(pdf.data(), static_cast<qsizetype>(pdf.size()))
        .count(QRegularExpression("/Type\\s*/Page\\b"));
  }

  QTemporaryDir folder;
  ReportDialogs boxes;
  QtDesktop desktop;
  std::vector<std::string> told;
};

TEST_F(Printing, WritesAPdfWithAsManyPagesAsTheTextNeeds) {
  std::string radio = "\r\n\r\n";
  for (int i = 0; i < 40; ++i) radio += "SETTING " + std::to_string(i) + "\r\n";
  const std::pair<std::string, qsizetype> cases[] = {
      {"", 1}, {radio, 1}, {radio + radio + radio, 3}, {std::string(10'000, 'x'), 3}};
  for (const auto& [text, pages] : cases) {
    Write(In("config.txt"), text);
    Print(In("report.pdf"));
    const std::string pdf = Read(In("report.pdf"));
    EXPECT_TRUE(pdf.starts_with("%PDF-1.") && pdf.find("%%EOF") != std::string::npos);
    EXPECT_EQ(PagesOf(pdf), pages);
  }
  EXPECT_THAT(told, ElementsAre());
}

TEST_F(Printing, AReportThatFailsTellsWhyAndLeavesTheOldOne) {
  Write(In("config.txt"), "MODE M\r\n");
  Write(In("old.pdf"), "an older report");
  fs::create_directory(In("folder.pdf"));
  Print(In("missing/report.pdf"));
  Print(In("folder.pdf"));
  desktop.Print({"Gone printer", {}}, In("config.txt"), "Radio");
  fs::remove(In("config.txt"));
  Print(In("old.pdf"));
  using testing::HasSubstr;
  EXPECT_THAT(
      told,
      ElementsAre(testing::AllOf(HasSubstr("missing/report.pdf could not be written."),
                                 HasSubstr("No such file or directory")),
                  HasSubstr("folder.pdf could not be written. There is something of that name"),
                  HasSubstr("There is no printer."), HasSubstr("config.txt could not be read.")));
  EXPECT_EQ(Read(In("old.pdf")), "an older report");
  EXPECT_EQ(std::distance(fs::directory_iterator(In(".")), {}), 2);
}

}  // namespace
}  // namespace quillmark
