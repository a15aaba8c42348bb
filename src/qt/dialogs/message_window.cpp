#include "qt/dialogs/message_window.h"

#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/binding/window_fit.h"
#include "qt/dialogs/box_text.h"
#include "qt/text/latin1.h"
#include "qt/widgets/fitting_scroll_area.h"

namespace quillmark {

namespace {

using Standard = QDialogButtonBox::StandardButton;

// A button of a message box, and what it answers.
struct Choice {
  Buttons Row;
  Standard Button;
  Answer Means;
  const char* Name;
};

constexpr Choice choices[] = {
    {Buttons::Ok, Standard::Ok, Answer::Ok, "Ok"},
    {Buttons::OkCancel, Standard::Ok, Answer::Ok, "Ok"},
    {Buttons::OkCancel, Standard::Cancel, Answer::Cancel, "Cancel"},
    {Buttons::YesNo, Standard::Yes, Answer::Yes, "Yes"},
    {Buttons::YesNo, Standard::No, Answer::No, "No"},
    {Buttons::YesNoCancel, Standard::Yes, Answer::Yes, "Yes"},
    {Buttons::YesNoCancel, Standard::No, Answer::No, "No"},
    {Buttons::YesNoCancel, Standard::Cancel, Answer::Cancel, "Cancel"},
    {Buttons::RetryCancel, Standard::Retry, Answer::Retry, "Retry"},
    {Buttons::RetryCancel, Standard::Cancel, Answer::Cancel, "Cancel"},
    {Buttons::AbortRetryIgnore, Standard::Abort, Answer::Abort, "Abort"},
    {Buttons::AbortRetryIgnore, Standard::Retry, Answer::Retry, "Retry"},
    {Buttons::AbortRetryIgnore, Standard::Ignore, Answer::Ignore, "Ignore"},
};

// A window that stays above all others must not hide a box.
void KeepInFront(QDialog& box) {
  const QWidgetList windows = QApplication::topLevelWidgets();
  const bool covered = std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
  });
  box.setWindowFlag(Qt::WindowStaysOnTopHint, covered);
}

// What Enter answers: nothing that cannot be undone.
Answer DefaultAnswer(const MessageBox& box) {
  if (box.Irreversible) return Refusal(box.Choice);
  switch (box.Choice) {
    case Buttons::Ok:
    case Buttons::OkCancel:
      return Answer::Ok;
    case Buttons::YesNo:
      return box.Symbol == Icon::Exclamation || box.Symbol == Icon::Critical ? Answer::No
                                                                             : Answer::Yes;
    case Buttons::YesNoCancel:
      return Answer::No;
    case Buttons::RetryCancel:
    case Buttons::AbortRetryIgnore:
      return Answer::Retry;
  }
  return Answer::Ok;
}

QStyle::StandardPixmap PictureOf(Icon symbol) {
  switch (symbol) {
    case Icon::Question:
      return QStyle::SP_MessageBoxQuestion;
    case Icon::Exclamation:
      return QStyle::SP_MessageBoxWarning;
    case Icon::Critical:
      return QStyle::SP_MessageBoxCritical;
    default:
      return QStyle::SP_MessageBoxInformation;
  }
}

// Of a line to type into, and so of the title above it.
constexpr int lineWidth = 48;
// Of the sentence on what is wrong with it.
constexpr int problemLines = 3;

}  // namespace

MessageWindow::MessageWindow(const MessageBox& box, QWidget* parent)
    : QDialog(parent), area(new FittingScrollArea(this)), answer(CloseAnswer(box.Choice)) {
  setObjectName(QStringLiteral("MessageBox"));
  setWindowTitle(ToQt(box.Title));
  KeepInFront(*this);
  auto* column = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  column->addLayout(top);
  if (box.Symbol != Icon::None) {
    auto* picture = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    picture->setPixmap(style()->standardIcon(PictureOf(box.Symbol)).pixmap(size));
    picture->setAlignment(Qt::AlignTop);
    top->addWidget(picture);
    top->addSpacing(fontMetrics().averageCharWidth());
  }
  area->Hold(*MakeTexts(box));
  top->addWidget(area, 1);
  auto* row = new QDialogButtonBox(this);
  AddButtons(box, *row);
  column->addSpacing(fontMetrics().height() / 2);
  column->addWidget(row);
  column->setSizeConstraint(QLayout::SetFixedSize);
  StayWithin(RoomOn(screen()->availableGeometry(), *this));
  CopyWithoutBreaks(*this);
}

void MessageWindow::StayWithin(QSize room) {
  const int over = sizeHint().height() - room.height();
  if (over <= 0) return;
  const QSize wanted = area->sizeHint();
  // The bar at the side must not take the texts' room.
  area->setMinimumWidth(wanted.width() + area->verticalScrollBar()->sizeHint().width());
  area->setMaximumHeight(wanted.height() - over);
}

void MessageWindow::keyPressEvent(QKeyEvent* event) {
  QScrollBar& bar = *area->verticalScrollBar();
  if (event->key() == Qt::Key_PageDown) {
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
  } else if (event->key() == Qt::Key_PageUp) {
    bar.triggerAction(QAbstractSlider::SliderPageStepSub);
  } else {
    QDialog::keyPressEvent(event);
  }
}

QWidget* MessageWindow::MakeTexts(const MessageBox& box) {
  auto* texts = new QWidget(this);
  auto* column = new QVBoxLayout(texts);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(fontMetrics().height());
  column->addWidget(MakeBoxText(box.Text, "messageText", texts));
  if (!box.Details.empty()) column->addWidget(MakeBoxText(box.Details, "messageDetails", texts));
  column->addStretch();
  return texts;
}

void MessageWindow::AddButtons(const MessageBox& box, QDialogButtonBox& row) {
  for (const Choice& choice : choices) {
    if (choice.Row != box.Choice) continue;
    QPushButton* button = row.addButton(choice.Button);
    button->setObjectName(QLatin1String(choice.Name));
    for (const auto& [means, caption] : box.Captions) {
      if (means == choice.Means) button->setText(ToQt(caption));
    }
    connect(button, &QPushButton::clicked, this, [this, means = choice.Means] {
      answer = means;
      accept();
    });
    if (choice.Means != DefaultAnswer(box)) continue;
    button->setDefault(true);
    button->setFocus();
  }
}

Answer MessageWindow::Ask() {
  // The owner may die meanwhile, and the box with it.
  const Answer unanswered = answer;
  const QPointer<MessageWindow> self = this;
  exec();
  return self.isNull() ? unanswered : answer;
}

InputWindow::InputWindow(const InputBox& box, QWidget* parent)
    : QDialog(parent),
      check(box.Check),
      line(new QLineEdit(this)),
      trouble(MakeBoxText("", "inputTrouble", this)) {
  setObjectName(QStringLiteral("InputBox"));
  setWindowTitle(ToQt(box.Title));
  KeepInFront(*this);
  auto* column = new QVBoxLayout(this);
  AddLine(box, *column);
  if (check) AddCheck(*column);
  column->addSpacing(fontMetrics().height() / 2);
  AddButtons(*column);
  if (check) {
    connect(line, &QLineEdit::textChanged, this, &InputWindow::Judge);
    Judge();
  }
  const QSize room = RoomOn(screen()->availableGeometry(), *this);
  FitInto(*this, room);
  if (sizeHint() != sizeHint().boundedTo(room)) resize(sizeHint().boundedTo(room));
}

void InputWindow::AddLine(const InputBox& box, QVBoxLayout& column) {
  QLabel* prompt = MakeBoxText(box.Prompt, "inputPrompt", this);
  column.addWidget(prompt);
  line->setObjectName(QStringLiteral("inputLine"));
  line->setAccessibleName(prompt->text());
  if (!box.Hint.empty()) {
    QLabel* hint = MakeBoxText(box.Hint, "inputHint", this);
    line->setAccessibleDescription(hint->text());
    column.addWidget(hint);
  }
  line->setText(ToQt(box.Default));
  line->setMinimumWidth(line->fontMetrics().averageCharWidth() * lineWidth);
  line->selectAll();
  line->setFocus();
  column.addWidget(line);
  trouble->hide();
  column.addWidget(trouble);
  // What has been mended is no longer told.
  connect(line, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (trouble->isVisible()) TellTrouble(ForeignCharacters(text));
  });
}

// Its room is there from the start, so that nothing moves while the user types.
void InputWindow::AddCheck(QVBoxLayout& column) {
  problem = MakeBoxText({}, "inputProblem", this);
  problem->setMinimumWidth(line->minimumWidth());
  problem->setMinimumHeight(problem->fontMetrics().lineSpacing() * problemLines);
  problem->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  QFont face = problem->font();
  face.setBold(true);
  problem->setFont(face);
  column.addWidget(problem);
}

void InputWindow::AddButtons(QVBoxLayout& column) {
  auto* row = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok = row->button(QDialogButtonBox::Ok);
  usualOk = ok->text();
  ok->setObjectName(QStringLiteral("Ok"));
  row->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("Cancel"));
  connect(row, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(row, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column.addWidget(row);
}

void InputWindow::Judge() { ShowProblem(ToQt(check(FromQt(line->text())))); }

void InputWindow::ShowProblem(const QString& sentence) {
  const QString shown = sentence.isEmpty() ? QString() : sentence + tr(". The radio decides.");
  if (shown == problem->text()) return;
  problem->setText(shown);
  problem->setAccessibleName(shown);
  ok->setText(shown.isEmpty() ? usualOk : tr("Send anyway"));
  if (shown.isEmpty()) return;
  QAccessibleEvent event(problem, QAccessible::Alert);
  QAccessible::updateAccessibility(&event);
}

void InputWindow::TellTrouble(const QString& foreign) {
  trouble->setText(
      tr("This can't be taken, because the radio's alphabet does not have: %1").arg(foreign));
  trouble->setVisible(!foreign.isEmpty());
  line->setAccessibleDescription(foreign.isEmpty() ? QString() : trouble->text());
}

void InputWindow::accept() {
  const QString foreign = ForeignCharacters(line->text());
  TellTrouble(foreign);
  if (foreign.isEmpty()) return QDialog::accept();
  line->setFocus();
}

QString InputWindow::Ask() {
  const QPointer<InputWindow> self = this;
  const int result = exec();
  return self.isNull() || result != QDialog::Accepted ? QString() : line->text();
}

}  // namespace quillmark
