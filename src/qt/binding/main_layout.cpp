#include "qt/binding/main_layout.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QMainWindow>
#include <QSlider>
#include <QSplitter>
#include <QStackedWidget>
#include <algorithm>

#include "qt/binding/window_places.h"
#include "qt/widgets/fitting_scroll_area.h"
#include "ui_frmOrvalent.h"

namespace quillmark {

namespace {

// Of the view with the tabs, in average characters.
constexpr int tabsWidth = 96;

// With these the window fits a screen of 640 by 480 pixels; at large fonts the rows then scroll
// sideways too.
constexpr QSize leastInfo{195, 80};
constexpr QSize leastView{410, 80};

QSplitter* MakeSplitter(Qt::Orientation orientation, const char* name, QWidget* parent) {
  auto* splitter = new QSplitter(orientation, parent);
  splitter->setObjectName(QLatin1String(name));
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(10);
  return splitter;
}

FittingScrollArea* MakeScrolling(QWidget& held, const char* name, QWidget* parent, QSize least) {
  auto* area = new FittingScrollArea(parent);
  area->setObjectName(QLatin1String(name));
  area->Hold(held);
  area->SetLeast(least);
  return area;
}

// The terminal's height comes off the window while the terminal is hidden, but for what the rows
// lack. When it is back the window has the height with which it came up, and the lower half the
// height that it had. A window that the user has sized keeps its height, and the rows get the room.
class TerminalFold : public QObject {
 public:
  TerminalFold(QMainWindow& mainWindow, QSplitter& itsSplitter)
      : QObject(&mainWindow), window(mainWindow), splitter(itsSplitter) {
    window.installEventFilter(this);
    splitter.widget(0)->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window) {
      if (event->type() == QEvent::Show && heightAtLoad == 0) heightAtLoad = window.height();
    } else if (event->type() == QEvent::HideToParent && heightAtLoad > 0) {
      Fold();
    } else if (event->type() == QEvent::ShowToParent && folded) {
      Unfold();
    }
    return false;
  }

 private:
  bool Resizable() const { return !window.isMaximized() && !window.isFullScreen(); }

  // What the lower half wants beyond what it has.
  int Lacking() const {
    const QWidget& lower = *splitter.widget(1);
    return std::max(0, lower.sizeHint().height() - lower.height());
  }

  void Fold() {
    folded = true;
    lowerHeight = splitter.widget(1)->height();
    sized = window.height() != heightAtLoad;
    if (!Resizable() || sized) return;
    const int freed = splitter.widget(0)->height() + splitter.handleWidth();
    const int taken = std::max(0, freed - Lacking());
    window.setProperty(heightTakenProperty, taken);
    window.resize(window.width(), window.height() - taken);
  }

  void Unfold() {
    folded = false;
    window.setProperty(heightTakenProperty, 0);
    if (Resizable() && !sized) window.resize(window.width(), heightAtLoad);
    const int whole = splitter.height() - splitter.handleWidth();
    splitter.setSizes({whole - lowerHeight, lowerHeight});
  }

  QMainWindow& window;
  QSplitter& splitter;
  int heightAtLoad = 0;  // 0: not shown yet
  int lowerHeight = 0;
  bool folded = false;
  bool sized = false;  // by the user
};

// The tasks beside each other, or, where that is too wide, the new radio beside the two others.
class TaskColumns : public QObject {
 public:
  TaskColumns(const Ui::frmOrvalent& form, FittingScrollArea& itsArea)
      : QObject(&itsArea), ui(form), area(itsArea), others(new QBoxLayout(sideBySide)) {
    others->setSpacing(ui.quickRow->spacing());
    others->addWidget(ui.frAction, 5);
    others->addWidget(ui.frPreset, 4);
    ui.quickRow->addLayout(others, 9);
    area.viewport()->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) Arrange();
    return false;
  }

 private:
  static constexpr auto sideBySide = QBoxLayout::LeftToRight;

  void Arrange() {
    const QMargins edges = ui.quickRow->contentsMargins();
    const QMargins frame = ui.frQuick->contentsMargins();
    int wide = edges.left() + edges.right() + frame.left() + frame.right() + 2 * others->spacing();
    for (const QWidget* box :
         std::initializer_list<QWidget*>{ui.frNewRadio, ui.frAction, ui.frPreset}) {
      wide += box->minimumSizeHint().width();
    }
    const bool roomy = area.viewport()->width() >= wide;
    others->setDirection(roomy ? sideBySide : QBoxLayout::TopToBottom);
  }

  Ui::frmOrvalent ui;
  FittingScrollArea& area;
  QBoxLayout* others;
};

// The wheel scrolls the tasks. Nothing that it passes over on its way changes by that.
class WheelGuard : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

void GuardFromWheel(std::initializer_list<QWidget*> inputs) {
  for (QWidget* input : inputs) {
    input->setFocusPolicy(Qt::StrongFocus);
    input->installEventFilter(new WheelGuard(input));
  }
}

// Pages that are not seen want no room.
void FollowPage(QStackedWidget& stack) {
  const auto follow = [&stack] {
    for (int i = 0; i < stack.count(); ++i) {
      const bool seen = i == stack.currentIndex();
      const auto policy = seen ? QSizePolicy::Preferred : QSizePolicy::Ignored;
      stack.widget(i)->setSizePolicy(policy, policy);
    }
  };
  QObject::connect(&stack, &QStackedWidget::currentChanged, &stack, follow);
  follow();
}

// Enough for each page, those with tabs above them included, so that the lower half keeps its size.
QSize UsualView(const Ui::frmOrvalent& ui) {
  QSize usual(ui.viewStack->fontMetrics().averageCharWidth() * tabsWidth, 0);
  for (int i = 0; i < ui.viewStack->count(); ++i) {
    const QWidget* page = ui.viewStack->widget(i);
    const int tabs = page == ui.frQuick ? 0 : ui.SettingsTab->sizeHint().height();
    usual = usual.expandedTo(page->sizeHint() + QSize(0, tabs));
  }
  return usual;
}

void ShareLowerHalf(const Ui::frmOrvalent& ui) {
  QSplitter* splitter = MakeSplitter(Qt::Horizontal, "rowSplitter", ui.lowerHalf);
  ui.lowerRow->addWidget(splitter);
  splitter->addWidget(MakeScrolling(*ui.InfoFrame, "infoArea", splitter, leastInfo));
  auto* view = new QWidget(splitter);
  ui.lowerRow->removeItem(ui.viewColumn);
  ui.viewColumn->setParent(nullptr);
  view->setLayout(ui.viewColumn);
  ui.viewColumn->setContentsMargins(0, 0, 0, 0);
  const QSize usual = UsualView(ui);
  FittingScrollArea* area = MakeScrolling(*ui.viewStack, "viewArea", view, leastView);
  area->SetUsual(usual);
  ui.viewColumn->addWidget(area, 1);
  FollowPage(*ui.viewStack);
  splitter->addWidget(view);
  // From here both grow and shrink with the window.
  splitter->setSizes({splitter->widget(0)->sizeHint().width(), usual.width()});
  new TaskColumns(ui, *area);
}

}  // namespace

void ShareRoom(QMainWindow& window, const Ui::frmOrvalent& ui) {
  ShareLowerHalf(ui);
  QSplitter* splitter = MakeSplitter(Qt::Vertical, "terminalSplitter", ui.centralArea);
  ui.column->insertWidget(0, splitter, 1);
  splitter->addWidget(ui.txtTerm);
  splitter->addWidget(ui.lowerHalf);
  // What the window gains or loses in height is the terminal's.
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 0);
  new TerminalFold(window, *splitter);
  GuardFromWheel({ui.cmbBaud, ui.sldPwr});
}

}  // namespace quillmark
