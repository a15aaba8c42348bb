#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

class QWidget;

namespace quillmark {

// Keeps a window usable while modal ones are up. The system lets a modal window's own windows be
// used, so the window is made the property of the modal one in front, for as long as that is up.
class BesideModal : public QObject {
 public:
  // `window` outlives it, and has its final flags.
  explicit BesideModal(QWidget& window);

  // To be called when the window has been shown.
  void Follow();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FollowSoon();

  QPointer<QWindow> window;
  QPointer<QWindow> usualOwner;
};

}  // namespace quillmark
