#include "pictures/report.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "qt/text/latin1.h"
#include "start/console.h"

namespace quillmark {

namespace {

constexpr auto longestReading = std::chrono::seconds(90);

// A row of the settings view.
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

void Print(std::FILE* to, const std::string& latin1) {
  std::fputs(ToQt(latin1).toUtf8().constData(), to);
}

}  // namespace

Answer ReportDialogs::Message(const MessageBox& box) {
  if (OnMessage) return OnMessage(box);
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

std::string ReportDialogs::Input(const InputBox& box) {
  if (OnInput) OnInput(box);
  return {};
}

std::optional<PrintTarget> ReportDialogs::ChoosePrinter(const std::filesystem::path&,
                                                        const std::filesystem::path&) {
  if (PdfFile.empty()) return std::nullopt;
  return PrintTarget{"", PdfFile};
}

std::string RowTable(const frmOrvalent& main) {
  std::string table;
  AddGroup(table, main.InfoFrame.Text(), RowsOf(main, main.InfoFrame));
  for (std::size_t i = 0; i < main.NetSet.size(); ++i) {
    AddGroup(table, main.SettingsTab.Tabs[i], RowsOf(main, main.NetSet[i]));
  }
  return table;
}

Report::Report(Console& theConsole, Platform& platform, QtWindows& windows, ReportDialogs& dialogs,
               const std::string& folder)
    : console(theConsole),
      events(platform.Events),
      pictures(theConsole, platform, windows, dialogs, folder) {
  patience.setSingleShot(true);
  QObject::connect(&patience, &QTimer::timeout, &patience,
                   [this] { GiveUp("The radio could not be read within 90 seconds."); });
}

void Report::Start() {
  patience.start(longestReading);
  // Not inside the tick that read the radio.
  console.OnReadCycleDone = [this] {
    console.OnReadCycleDone = nullptr;
    patience.stop();
    QTimer::singleShot(0, &patience, [this] { events.Deliver([this] { Write(); }); });
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
  exitCode = pictures.Take() ? 0 : 1;
  End();
}

void Report::End() {
  ended = true;
  console.Main().UserClose();
  if (!events.Quitting()) events.Quit();
}

}  // namespace quillmark
