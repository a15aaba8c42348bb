#include "start/history_menu.h"

namespace quillmark {

HistoryMenu::HistoryMenu(Platform& machine, const Session& shared, frmOrvalent& mainWindow,
                         RadioHistory& copies, UndoRun& opener, ConfigFileMenu& editor)
    : platform(machine),
      session(shared),
      main(mainWindow),
      history(copies),
      undoRun(opener),
      configFiles(editor) {}

HistoryMenu::~HistoryMenu() {
  history.OnKept = nullptr;
  if (const auto shown = window.lock()) shown->Unload();
}

void HistoryMenu::Wire() {
  main.mnuHistory.OnClick = [this] { mnuHistory_Click(); };
  history.OnKept = [this] {
    if (const auto shown = window.lock()) shown->RefreshSoon();
  };
}

void HistoryMenu::mnuHistory_Click() {
  auto shown = window.lock();
  if (!shown || !shown->Loaded()) {
    shown = std::make_shared<frmHistory>(platform, session, history);
    shown->Restore = [this](const std::filesystem::path& copy) { undoRun.Open(copy); };
    shown->OpenFile = [this](const std::filesystem::path& copy) { configFiles.Open(copy); };
  }
  window = shown;
  platform.Windows.Show(shown);
}

}  // namespace quillmark
