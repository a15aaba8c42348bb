#include "qt/dialogs/qt_dialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QPrintDialog>
#include <QRegularExpression>

#include "platform/event_loop.h"
#include "qt/binding/window_registry.h"
#include "qt/desktop/printing.h"
#include "qt/dialogs/message_window.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

bool OwnsNoBox(const QWidget& window) {
  const WindowRow* row = WindowNamed(FromQt(window.objectName()));
  return row != nullptr && (row->Passes || row->BesideModal);
}

// The window that a box belongs to: the topmost of ours that can own one.
QWidget* OwnerWindow() {
  QWidget* top = QApplication::activeModalWidget();
  if (top == nullptr) top = QApplication::activeWindow();
  while (top != nullptr && OwnsNoBox(*top)) top = top->parentWidget();
  return top;
}

// Holds a dialog that may be deleted with its owner while it is up.
template <class Dialog>
class Held {
 public:
  explicit Held(Dialog* shown) : dialog(shown) {}
  ~Held() { delete dialog.data(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  Dialog* operator->() const { return dialog; }
  bool Alive() const { return !dialog.isNull(); }

 private:
  QPointer<Dialog> dialog;
};

// "Log Files (*.LOG)|*.log|All Files (*.*)|*.*", one filter for each pair. The pattern counts, and
// "*.*" means every file.
QStringList Filters(const std::string& filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString name = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
    QString pattern = parts[i + 1];
    pattern.replace(QLatin1Char(';'), QLatin1Char(' '));
    if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
    filters << QStringLiteral("%1 (%2)").arg(name, pattern);
  }
  return filters;
}

// The ending that a filter gives to a name without one: "log" of "Log Files (*.log)".
QString EndingOf(const QString& filter) {
  static const QRegularExpression ending(QStringLiteral("\\(\\*\\.(\\w+)"));
  return ending.match(filter).captured(1);
}

QString OneLine(QString text) {
  text.removeIf([](QChar c) { return c.unicode() < 32 || c.unicode() == 127; });
  return text;
}

QFileDialog* MakeFileDialog(const FileDialog& dialog, QFileDialog::AcceptMode purpose) {
  auto* window = new QFileDialog(OwnerWindow(), ToQt(dialog.Title));
  const QStringList filters = Filters(dialog.Filter);
  window->setObjectName(QStringLiteral("FileDialog"));
  window->setAcceptMode(purpose);
  window->setFileMode(purpose == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                         : QFileDialog::ExistingFile);
  window->setOption(QFileDialog::DontConfirmOverwrite);
  window->setNameFilters(filters);
  if (!dialog.Folder.empty()) {
    window->setDirectory(QFile::decodeName(QByteArray::fromStdString(dialog.Folder.string())));
  }
  if (purpose == QFileDialog::AcceptSave && !filters.isEmpty()) {
    window->setDefaultSuffix(EndingOf(filters.front()));
    QObject::connect(window, &QFileDialog::filterSelected, window,
                     [window](const QString& f) { window->setDefaultSuffix(EndingOf(f)); });
  }
  if (!dialog.Name.empty()) window->selectFile(ToQt(dialog.Name));
  return window;
}

// Here the dialog itself asks before a PDF replaces another.
QFileDialog* MakePdfDialog(const std::filesystem::path& suggested) {
  auto* window =
      MakeFileDialog({"Save Report as PDF", "PDF Files (*.pdf)|*.pdf"}, QFileDialog::AcceptSave);
  window->setOption(QFileDialog::DontConfirmOverwrite, false);
  const QFileInfo name(QFile::decodeName(QByteArray::fromStdString(suggested.string())));
  window->setDirectory(name.dir());
  window->selectFile(name.fileName());
  return window;
}

QPrintDialog* MakePrintDialog(QPrinter& printer) {
  auto* window = new QPrintDialog(&printer, OwnerWindow());
  window->setObjectName(QStringLiteral("PrintDialog"));
  // A report is short, and is always printed whole.
  window->setOption(QAbstractPrintDialog::PrintPageRange, false);
  return window;
}

}  // namespace

Answer QtDialogs::Message(const MessageBox& box) {
  const Answer closed = CloseAnswer(box.Choice);
  while (!events.Quitting()) {
    const Held window(new MessageWindow(box, OwnerWindow()));
    const Answer answer = window->Ask();
    if (window.Alive() && !events.Quitting()) return answer;
  }
  return closed;
}

std::string QtDialogs::Input(const InputBox& box) {
  while (!events.Quitting()) {
    const Held window(new InputWindow(box, OwnerWindow()));
    const QString typed = window->Ask();
    if (window.Alive()) return FromQt(OneLine(typed));
  }
  return {};
}

std::optional<std::filesystem::path> QtDialogs::OpenFile(const FileDialog& dialog) {
  return AskForFile([&] { return MakeFileDialog(dialog, QFileDialog::AcceptOpen); });
}

std::optional<std::filesystem::path> QtDialogs::SaveFile(const FileDialog& dialog) {
  return AskForFile([&] { return MakeFileDialog(dialog, QFileDialog::AcceptSave); });
}

std::optional<PrintTarget> QtDialogs::ChoosePrinter(const std::filesystem::path& file,
                                                    const std::filesystem::path& pdfFolder) {
  if (!HasPrinter()) return ChoosePdf(file, pdfFolder);
  while (!events.Quitting()) {
    const auto printer = PrinterFor(file);
    const Held window(MakePrintDialog(*printer));
    const int result = window->exec();
    if (!window.Alive()) continue;
    if (result != QDialog::Accepted || events.Quitting()) return std::nullopt;
    return TargetOf(printer);
  }
  return std::nullopt;
}

std::optional<PrintTarget> QtDialogs::ChoosePdf(const std::filesystem::path& file,
                                                const std::filesystem::path& folder) {
  std::filesystem::path offered = SuggestedPdf(file);
  if (!folder.empty()) offered = folder / offered.filename();
  const auto chosen = AskForFile([&] { return MakePdfDialog(offered); });
  if (!chosen) return std::nullopt;
  return PrintTarget{"", *chosen};
}

std::optional<std::filesystem::path> QtDialogs::AskForFile(
    const std::function<QFileDialog*()>& make) {
  while (!events.Quitting()) {
    const Held window(make());
    const int result = window->exec();
    if (!window.Alive()) continue;
    if (result != QDialog::Accepted || events.Quitting()) return std::nullopt;
    const QStringList files = window->selectedFiles();
    if (files.isEmpty()) return std::nullopt;
    return std::filesystem::path(QFile::encodeName(files.front()).toStdString());
  }
  return std::nullopt;
}

}  // namespace quillmark
