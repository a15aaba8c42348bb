#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/dialogs.h"
#include "platform/platform.h"

class QPixmap;
class QWidget;

namespace quillmark {

class Console;
class Form;
class QtWindows;
class ReportDialogs;

// Leaves pictures of all windows in a folder, as the windows look while a radio is connected. It
// opens each as a user would, and closes it again without programming anything. The report makes
// one.
class WindowPictures {
 public:
  WindowPictures(Console& console, Platform& platform, QtWindows& windows, ReportDialogs& dialogs,
                 std::string folder);

  // False when a picture could not be written. Windows of the registry that have none are told on
  // stderr: the radio may lack what a window sets.
  bool Take();

 private:
  using Prepare = std::function<void(Form&)>;

  void TellMissing() const;
  void TakeMain();
  void TakeFound();
  void TakeSmallMain();
  void TakeBoxes();
  void TakeOptionWindows();
  void TakeShellWindows();
  void TakeAccessWindows();
  void TakeConfigurationWindows();
  // A file opened without the radio, with values that radios don't take.
  void TakeConfigurationFile();
  void TakePresetMenu();
  // The radio beside a file that differs in a few settings, tab by tab.
  void TakeRestoreWindow();
  // Prints the radio's configuration into a PDF, with a picture of the window meanwhile.
  void TakePrint();
  void TakeProgressWindow();
  void TakeDiagnosticWindows();

  // Of a window that runs its own loop until it is closed. `open` may decline to open it.
  void TakeModal(const char* formName, const std::string& name, const std::function<void()>& open,
                 const Prepare& prepare = {});
  // Of a window that is shown beside the others, and of a box that asks or tells something.
  void TakeShown(const char* formName, const std::string& name, const std::function<void()>& open);
  void TakeBox(const std::string& name, Answer answer, const std::function<void()>& open);
  void Picture(const Form& form, const std::string& name);
  void Picture(QWidget& window, const std::string& name);
  void Settle();
  std::string FileOf(const std::string& name) const;
  void Save(const QPixmap& picture, const std::string& name);

  Console& console;
  Platform& platform;
  QtWindows& windows;
  ReportDialogs& dialogs;
  std::string folder;
  std::set<std::string> pictured;  // names of windows
  bool sound = true;
};

}  // namespace quillmark
