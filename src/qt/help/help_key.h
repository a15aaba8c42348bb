#pragma once

#include <QObject>
#include <functional>
#include <string>

namespace quillmark {

// F1 in any window, where no control has a use of its own for it: opens the manual at the page that
// the registry names for the window. A box is helped by the page of the window that it belongs to.
// Made once by the program, after the application.
class HelpKey : public QObject {
 public:
  // `open` gets the name of the page; empty where no window is known.
  explicit HelpKey(std::function<void(const std::string& page)> open);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(const std::string& page)> open;
};

}  // namespace quillmark
