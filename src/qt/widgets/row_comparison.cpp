#include "qt/widgets/row_comparison.h"

#include <QHelpEvent>
#include <QToolTip>

#include "catalogue/same_value.h"
#include "qt/text/latin1.h"

namespace quillmark {

namespace {

// How the row shows one outcome of the comparison.
struct Look {
  const char* Mark;
  const char* Words;
  bool Bold;
};

constexpr Look noFile{"", QT_TR_NOOP("no file is open"), false};
constexpr Look nowhere{"", QT_TR_NOOP("neither in the radio nor in the file"), false};
constexpr Look notInFile{"", QT_TR_NOOP("not in the file"), false};
constexpr Look notInRadio{"", QT_TR_NOOP("not in the radio"), false};
constexpr Look same{"=", QT_TR_NOOP("same"), false};
constexpr Look differs{"≠", QT_TR_NOOP("differs"), true};
// Behind the mark of the comparison: the radio will not take the file's value.
constexpr const char* problemMark = "!";

bool Lacks(const RestoreRow& row, const std::string& text) { return !IsValue(*row.What, text); }

const Look& LookOf(const RestoreRow& row, const std::string& current, const std::string& next,
                   bool fileOpen) {
  if (!fileOpen) return noFile;
  if (Lacks(row, current)) return Lacks(row, next) ? nowhere : notInRadio;
  if (Lacks(row, next)) return notInFile;
  return MatchOf(row, current, next) == RestoreMatch::Differs ? differs : same;
}

void SetBold(QWidget& widget, bool bold) {
  QFont font = widget.font();
  if (font.bold() == bold) return;
  font.setBold(bold);
  widget.setFont(font);
}

}  // namespace

RowComparison::RowComparison(const RestoreRow& itsRow, QCheckBox& box, ValueLine& radioValue,
                             ValueLine& fileValue, QLabel& label, QWidget& user)
    : QObject(&label),
      row(itsRow),
      check(box),
      current(radioValue),
      next(fileValue),
      mark(label),
      fileUser(user) {
  mark.setAlignment(Qt::AlignCenter);
  for (ValueLine* value : {&current, &next}) {
    connect(value, &QLineEdit::textChanged, this, &RowComparison::Show);
    connect(value, &ValueLine::ProblemChanged, this, &RowComparison::Show);
  }
  for (QWidget* widget : {static_cast<QWidget*>(&check), static_cast<QWidget*>(&current),
                          static_cast<QWidget*>(&next), static_cast<QWidget*>(&mark), &fileUser}) {
    widget->installEventFilter(this);
  }
  Show();
}

int RowComparison::MarkWidth(const QWidget& where) {
  QFont font = where.font();
  font.setBold(true);
  return QFontMetrics(font).horizontalAdvance(QString::fromUtf8(differs.Mark) +
                                              QLatin1String(problemMark)) *
         2;
}

void RowComparison::Show() {
  const bool fileOpen = fileUser.isEnabledTo(fileUser.window());
  const std::string inRadio = FromQt(current.text());
  const std::string inFile = FromQt(next.text());
  const Look& look = LookOf(row, inRadio, inFile, fileOpen);
  const bool radioLacks = Lacks(row, inRadio);
  const bool fileLacks = Lacks(row, inFile);
  const bool lacking = fileOpen && (radioLacks || fileLacks);
  const QString& problem = next.Problem();
  const bool bold = look.Bold || !problem.isEmpty();
  const QString words = problem.isEmpty() ? tr(look.Words) : tr(look.Words) + ". " + problem;
  mark.setVisible(!check.isHidden());
  mark.setText(QString::fromUtf8(look.Mark) + QLatin1String(problem.isEmpty() ? "" : problemMark));
  mark.setAccessibleName(words);
  mark.setForegroundRole(bold ? QPalette::WindowText : QPalette::PlaceholderText);
  SetBold(mark, bold);
  SetBold(current, look.Bold);
  SetBold(next, bold);
  current.SetQuiet(lacking || radioLacks);
  next.SetQuiet(lacking || fileLacks);
  check.setAccessibleDescription(
      tr("In the radio: %1. In the file: %2. %3.").arg(current.text(), next.text(), words));
}

bool RowComparison::ShowTip(QWidget& widget, const QPoint& place) const {
  const auto* value = qobject_cast<const ValueLine*>(&widget);
  const bool whole = value == nullptr || value->Shown() == value->displayText();
  const QString text = whole ? QString() : value->displayText().toHtmlEscaped() + "<br>";
  QToolTip::showText(place,
                     QStringLiteral("<qt>%1%2</qt>").arg(text, check.text().toHtmlEscaped()) +
                         QStringLiteral(": ") + mark.accessibleName(),
                     &widget);
  return true;
}

bool RowComparison::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ToolTip:
      if (watched == &fileUser) return false;
      return ShowTip(*static_cast<QWidget*>(watched), static_cast<QHelpEvent*>(event)->globalPos());
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
      if (watched == &check) Show();
      return false;
    case QEvent::EnabledChange:
      if (watched == &fileUser) Show();
      return false;
    default:
      return false;
  }
}

}  // namespace quillmark
