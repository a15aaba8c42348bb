#pragma once

#include <QTimer>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "pictures/window_pictures.h"
#include "platform/dialogs.h"
#include "platform/platform.h"

namespace quillmark {

class Console;
class frmOrvalent;
class QtWindows;

// For a run without a user. Boxes are told on stderr and answered as if they had been closed,
// unless they are wanted for their pictures.
class ReportDialogs : public Dialogs {
 public:
  // Told of each box that reports trouble.
  std::function<void()> OnTrouble;
  // While they are set the boxes go to them, and nothing is told.
  std::function<Answer(const MessageBox&)> OnMessage;
  std::function<void(const InputBox&)> OnInput;
  // What is printed goes into this file; nothing is printed while it is empty.
  std::filesystem::path PdfFile;
  // The file that is chosen to be opened; none is like Cancel.
  std::optional<std::filesystem::path> FileToOpen;

  Answer Message(const MessageBox& box) override;
  std::string Input(const InputBox& box) override;
  std::optional<std::filesystem::path> OpenFile(const FileDialog&) override { return FileToOpen; }
  std::optional<std::filesystem::path> SaveFile(const FileDialog&) override { return {}; }
  std::optional<PrintTarget> ChoosePrinter(const std::filesystem::path&,
                                           const std::filesystem::path&) override;
};

// The rows of the settings view as text, group by group, label and value in columns.
std::string RowTable(const frmOrvalent& main);

// Waits until the radio has been read once, prints the rows, leaves pictures of the windows in a
// folder, and ends the program.
class Report {
 public:
  Report(Console& console, Platform& platform, QtWindows& windows, ReportDialogs& dialogs,
         const std::string& folder);

  // Begins to wait; call before the event loop runs.
  void Start();
  // After the event loop: 0, or 1 when the radio could not be read or a picture not be written.
  int ExitCode() const { return exitCode; }
  void GiveUp(const std::string& reason);

 private:
  void Write();
  void End();

  Console& console;
  EventLoop& events;
  WindowPictures pictures;
  QTimer patience;
  int exitCode = 1;
  bool ended = false;
};

}  // namespace quillmark
