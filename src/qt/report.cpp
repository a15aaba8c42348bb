#include "qt/report.h"

#include <QDir>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/console.h"
#include "qt/latin1.h"
#include "qt/qt_windows.h"

namespace quillmark {

namespace {

constexpr auto longestReading = std::chrono::seconds(90);
constexpr auto statusRest = std::chrono::milliseconds(2200);

// Long enough for layouts, and for the terminal's batches of text.
constexpr Duration settleTime = Milliseconds(80);

struct TextRow {
  double Top;
  std::string Label;
  std::string Value;
};

// A value is made right before its label.
std::vector<TextRow> RowsOf(const Form& form, const Frame& frame) {
  std::vector<TextRow> rows;
  const auto& controls = form.Controls();
  for (std::size_t i = 0; i + 1 < controls.size(); ++i) {
    const auto* value = dynamic_cast<const ValueField*>(controls[i]);
    const auto* label = dynamic_cast<const Label*>(controls[i + 1]);
    if (value == nullptr || label == nullptr || value->Container() != &frame) continue;
    if (value->Visible()) rows.push_back({value->Top(), label->Text(), OnOneLine(value->Text())});
  }
  std::stable_sort(rows.begin(), rows.end(),
                   [](const TextRow& left, const TextRow& right) { return left.Top < right.Top; });
  return rows;
}

void AddGroup(std::string& table, const std::string& title, const std::vector<TextRow>& rows) {
  constexpr std::size_t labelColumn = 26;
  table += (table.empty() ? "" : "\n") + title + "\n";
  for (const TextRow& row : rows) {
    std::string label = row.Label;
    label.resize(std::max(labelColumn, label.size() + 1), ' ');
    table += "  " + label + row.Value + "\n";
  }
}

// For a file name: "Radio Settings 1" as "radio-settings-1".
std::string FileName(std::string title) {
  for (char& c : title) {
    if (c == ' ') c = '-';
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return title;
}

void Print(std::FILE* to, const std::string& latin1) {
  std::fputs(ToQt(latin1).toUtf8().constData(), to);
}

}  // namespace

Answer ReportDialogs::Message(const MessageBox& box) {
  Print(stderr, "quillmark-console: " + OnOneLine(box.Text) + "\n");
  if (!box.Details.empty()) Print(stderr, OnOneLine(box.Details) + "\n");
  const bool trouble = box.Symbol == Icon::Exclamation || box.Symbol == Icon::Critical;
  if (trouble && OnTrouble) OnTrouble();
  switch (box.Choice) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::YesNo:
      return Answer::No;
    case Buttons::AbortRetryIgnore:
      return Answer::Ignore;  // nobody is there to wait
    default:
      return Answer::Cancel;
  }
}

std::string RowTable(const frmOrvalent& main) {
  std::string table;
  AddGroup(table, main.InfoFrame.Text(), RowsOf(main, main.InfoFrame));
  for (std::size_t i = 0; i < main.NetSet.size(); ++i) {
    AddGroup(table, main.SettingsTab.Tabs[i], RowsOf(main, main.NetSet[i]));
  }
  return table;
}

Report::Report(Console& theConsole, QtWindows& theWindows, EventLoop& loop, std::string target)
    : console(theConsole), windows(theWindows), events(loop), folder(std::move(target)) {
  patience.setSingleShot(true);
  QObject::connect(&patience, &QTimer::timeout, &patience,
                   [this] { GiveUp("The radio could not be read within 90 seconds."); });
}

void Report::Start() {
  patience.start(longestReading);
  // Not inside the tick that read the radio, but when the status bar has come to rest.
  console.OnReadCycleDone = [this] {
    console.OnReadCycleDone = nullptr;
    patience.stop();
    QTimer::singleShot(statusRest, &patience, [this] { events.Deliver([this] { Write(); }); });
  };
}

void Report::GiveUp(const std::string& reason) {
  if (ended) return;
  std::fprintf(stderr, "quillmark-console: %s\n", reason.c_str());
  End();
}

void Report::Write() {
  Print(stdout, RowTable(console.Main()));
  std::fflush(stdout);
  exitCode = QDir().mkpath(QString::fromStdString(folder)) ? 0 : 1;
  TakeMainPictures();
  TakeSetup();
  TakeAbout();
  End();
}

void Report::TakeMainPictures() {
  frmOrvalent& main = console.Main();
  Picture(main, "quick-tasks");
  main.ButtonAdv.Click();
  for (int tab = 1; tab <= static_cast<int>(main.SettingsTab.Tabs.size()); ++tab) {
    main.SettingsTab.UserSelect(tab);
    const std::string title = main.SettingsTab.Tabs[static_cast<std::size_t>(tab - 1)];
    Picture(main, "tab-" + std::to_string(tab) + "-" + FileName(title));
  }
  main.ButtonAdv.Click();
}

// The window is modal: its picture is taken from inside its own waiting.
void Report::TakeSetup() {
  QTimer::singleShot(0, &patience, [this] {
    events.Deliver([this] {
      Form* setup = windows.FormNamed("frmProperties");
      if (setup == nullptr) return;
      Picture(*setup, "setup");
      setup->UserClose();
    });
  });
  console.Main().mnuProperties.Click();
}

void Report::TakeAbout() {
  console.Main().mnuAbout.Click();
  Form* about = windows.FormNamed("frmSplash");
  if (about == nullptr) return;
  Picture(*about, "about");
  about->Unload();
}

void Report::Picture(const Form& form, const std::string& name) {
  WaitUntil(events, settleTime, [] { return false; });
  QWidget* window = windows.WindowOf(form);
  const QString file = QDir(QString::fromStdString(folder)).filePath(ToQt(name + ".png"));
  if (window != nullptr && window->grab().save(file)) return;
  std::fprintf(stderr, "quillmark-console: %s could not be written\n", file.toUtf8().constData());
  exitCode = 1;
}

void Report::End() {
  ended = true;
  console.Main().UserClose();
  if (!events.Quitting()) events.Quit();
}

}  // namespace quillmark
