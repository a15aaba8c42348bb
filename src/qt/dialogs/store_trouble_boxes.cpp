#include "qt/dialogs/store_trouble_boxes.h"

#include <QApplication>

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "qt/binding/qt_windows.h"

namespace quillmark {

namespace {

constexpr int lookInterval = 100;  // ms

}  // namespace

StoreTroubleBoxes::StoreTroubleBoxes(IniPreferenceStore& preferences, const QtWindows& shown,
                                     Dialogs& boxes, EventLoop& loop)
    : store(preferences), windows(shown), dialogs(boxes), events(loop) {
  QObject::connect(&look, &QTimer::timeout, &look, [this] { ShowNext(); });
  store.TellTroubles([this](const IniPreferenceStore::Trouble& trouble) {
    waiting.push_back(trouble);
    look.start(lookInterval);
  });
}

StoreTroubleBoxes::~StoreTroubleBoxes() { store.TellTroubles(nullptr); }

void StoreTroubleBoxes::ShowNext() {
  if (windows.MainWindow() == nullptr || QApplication::activeModalWidget() != nullptr) return;
  const IniPreferenceStore::Trouble trouble = std::move(waiting.front());
  waiting.pop_front();
  if (waiting.empty()) look.stop();
  events.Deliver([&] {
    dialogs.Message({.Text = trouble.Text,
                     .Title = ProgramTitle,
                     .Symbol = Icon::Exclamation,
                     .Choice = Buttons::Ok,
                     .Details = trouble.Details});
  });
}

}  // namespace quillmark
