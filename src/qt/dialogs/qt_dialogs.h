#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "platform/dialogs.h"

class QFileDialog;

namespace quillmark {

class EventLoop;

// The boxes and dialogs of the desktop. Timers and the serial ports go on while one is up. When the
// program quits, none comes up any more: the call answers as if the user had closed it. A box that
// loses the window it belongs to comes up again, because nobody has answered it.
class QtDialogs : public Dialogs {
 public:
  explicit QtDialogs(const EventLoop& events) : events(events) {}

  Answer Message(const MessageBox& box) override;
  std::string Input(const InputBox& box) override;
  std::optional<std::filesystem::path> OpenFile(const FileDialog& dialog) override;
  std::optional<std::filesystem::path> SaveFile(const FileDialog& dialog) override;
  std::optional<PrintTarget> ChoosePrinter(const std::filesystem::path& file,
                                           const std::filesystem::path& pdfFolder) override;

 private:
  std::optional<std::filesystem::path> AskForFile(const std::function<QFileDialog*()>& make);
  std::optional<PrintTarget> ChoosePdf(const std::filesystem::path& file,
                                       const std::filesystem::path& folder);

  const EventLoop& events;
};

}  // namespace quillmark
