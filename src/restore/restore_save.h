#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/frmOrvalent.h"
#include "config/replaced_file.h"
#include "platform/platform.h"
#include "restore/restore_controls.h"
#include "restore/restore_link.h"
#include "session/session.h"

namespace quillmark {

// The lines that a row gives for a file, from its current text; none when the radio has no value
// for it, or the row is not saved for this revision or mode.
std::vector<std::string> RestoreLines(const RestoreRow& row, const std::string& text,
                                      const Revision& revision, bool master);

// Saves the window's current column to a file, with a header that it asks the radio for. Everything
// given to it outlives it.
class RestoreSaver {
 public:
  RestoreSaver(Platform& platform, Session& session, frmOrvalent& main, RestoreControls& controls,
               RestoreLink& link, Form& window);

  // Nothing when the user cancels.
  std::optional<std::filesystem::path> ChooseFile();
  // Writes the whole file. A radio that gives no serial number or revision leaves its line out.
  // What the file holds then is told in the window, and in a notice of the main window. Throws
  // SerialError: the file that stood there is kept beside it. Throws FileError and RestoreLinkLost:
  // it stands where it stood.
  void Write(const std::filesystem::path& path);
  // Two seconds of a progress window in the place of this one.
  void ShowSaved();

 private:
  void WriteHead(ReplacedFile& file);
  // The lines of each setting that the column has a value for.
  std::vector<std::string> Settings();
  void Tell(const std::string& sentence);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  RestoreControls& controls;
  RestoreLink& link;
  Form& window;
};

}  // namespace quillmark
