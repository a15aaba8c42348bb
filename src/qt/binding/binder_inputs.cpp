// How the controls that hold a text or a list are joined to their widgets.

#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "prefs/colours.h"
#include "qt/binding/binder.h"
#include "qt/help/help_view.h"
#include "qt/text/latin1.h"
#include "qt/widgets/colors.h"
#include "qt/widgets/noted_items.h"
#include "qt/widgets/plain_tip.h"
#include "qt/widgets/row_widgets.h"
#include "qt/widgets/table_view.h"
#include "qt/widgets/terminal_view.h"
#include "qt/widgets/text_page.h"

namespace quillmark {

namespace {

// A square of a colour, in a frame so that it shows on a ground of the same colour.
QIcon Swatch(std::uint32_t blueGreenRed, const QWidget& where) {
  const int side = where.fontMetrics().height();
  const qreal scale = where.devicePixelRatioF();
  QPixmap picture(QSize(side, side) * scale);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QColor edge = where.palette().color(QPalette::Text);
  edge.setAlphaF(0.5F);
  painter.setPen(edge);
  painter.setBrush(ToColor(blueGreenRed));
  painter.drawRect(QRectF(0.5, 0.5, side - 1, side - 1));
  return QIcon(picture);
}

void ShowSwatches(const ListBox& control, QComboBox& box) {
  const auto& colours = control.ItemColours();
  if (colours.empty()) return;
  const int side = box.fontMetrics().height();
  box.setIconSize({side, side});
  for (std::size_t i = 0; i < colours.size() && i < control.Items().size(); ++i) {
    box.setItemIcon(static_cast<int>(i), Swatch(colours[i], box));
  }
}

void ShowNotes(const ListBox& control, QComboBox& box) {
  const auto& notes = control.ItemNotes();
  if (notes.empty()) return;
  if (qobject_cast<NotedItems*>(box.itemDelegate()) == nullptr) {
    box.setItemDelegate(new NotedItems(&box));
  }
  for (std::size_t i = 0; i < notes.size() && i < control.Items().size(); ++i) {
    NotedItems::SetNote(box, static_cast<int>(i), ToQt(notes[i].Text), notes[i].Muted);
  }
}

void ShowItems(const ListBox& control, QComboBox& box) {
  const auto& items = control.Items();
  bool same = box.count() == static_cast<int>(items.size());
  for (int i = 0; same && i < box.count(); ++i) {
    same = box.itemText(i) == ToQt(items[static_cast<std::size_t>(i)]);
  }
  if (!same) {
    box.clear();
    for (const std::string& item : items) box.addItem(ToQt(item));
    ShowSwatches(control, box);
  }
  const auto& tips = control.ItemTips();
  for (std::size_t i = 0; i < tips.size() && i < items.size(); ++i) {
    box.setItemData(static_cast<int>(i), PlainTip(tips[i]), Qt::ToolTipRole);
  }
  ShowNotes(control, box);
}

void ShowSecrecy(const TextBox& control, QLineEdit& line) {
  const auto mode = control.Secret() ? QLineEdit::Password : QLineEdit::Normal;
  if (line.echoMode() == mode) return;
  line.setEchoMode(mode);
  // Style sheets are Qt's only way to choose the character that stands for a secret one: "*".
  line.setStyleSheet(control.Secret() ? QStringLiteral("lineedit-password-character: 42")
                                      : QString());
}

// Both colours together are the user's choice: one may suit only the other.
TerminalView::Style StyleOf(const TextBox& control) {
  return {.Ink = ToColor(control.ForeColor()),
          .Paper = ToColor(control.BackColor()),
          .Chosen =
              control.ForeColor() != DefaultTextColour || control.BackColor() != DefaultBackColour};
}

void ShowRemarks(const TextBox& control, TextPage& page) {
  std::map<int, QString> remarks;
  for (const auto& [line, remark] : control.Remarks()) {
    remarks[static_cast<int>(line) - 1] = ToQt(remark);
  }
  page.SetRemarks(std::move(remarks));
}

void SetBold(QWidget& widget, bool bold) {
  if (widget.font().bold() == bold) return;
  QFont font = widget.font();
  font.setBold(bold);
  widget.setFont(font);
}

}  // namespace

void Binder::JoinTextBox(TextBox& control, QWidget& widget) {
  if (auto* terminal = qobject_cast<TerminalView*>(&widget)) {
    JoinTerminal(control, *terminal);
  } else if (auto* line = qobject_cast<QLineEdit*>(&widget)) {
    JoinLine(control, *line);
  } else if (auto* page = qobject_cast<QPlainTextEdit*>(&widget); page && page->isReadOnly()) {
    JoinReading(control, *page);
  } else if (auto* manual = qobject_cast<HelpView*>(&widget)) {
    JoinManual(control, *manual);
  } else {
    problems.push_back(control.Name() + " has a widget that takes no text");
  }
}

void Binder::JoinLine(TextBox& control, QLineEdit& line) {
  line.installEventFilter(this);
  connect(&line, &QLineEdit::textEdited, this, [this, &control](const QString& text) {
    ActOn(control, [&control, typed = FromQt(text)] { control.UserEdit(typed); });
  });
  Follow(control, [this, &control, &line] {
    ShowCommon(control, line);
    ShowSecrecy(control, line);
    line.setMaxLength(control.MaxLength() == 0 ? 32767 : static_cast<int>(control.MaxLength()));
    const QString text = ToQt(control.Text());
    if (line.text() != text) line.setText(text);
    if (auto* value = qobject_cast<ValueLine*>(&line)) value->SetProblem(ToQt(control.Problem()));
  });
}

void Binder::JoinTerminal(TextBox& control, TerminalView& terminal) {
  connect(&terminal, &TerminalView::Typed, this, [this, &control](const std::string& characters) {
    ActOn(control, [&control, characters] { control.UserType(characters); });
  });
  Follow(control,
         [this, &control, &terminal, shown = std::optional<TerminalView::Style>()]() mutable {
           ShowCommon(control, terminal);
           // This runs for each text that arrives. The style rarely changes.
           const TerminalView::Style style = StyleOf(control);
           if (shown != style) terminal.SetStyle(style);
           shown = style;
           SetBold(terminal, control.Bold());
           terminal.Follow(control.Text());
         });
}

void Binder::JoinReading(TextBox& control, QPlainTextEdit& page) {
  Follow(control, [this, &control, &page] {
    ShowCommon(control, page);
    const QString text = InLines(control.Text());
    if (page.toPlainText() != text) page.setPlainText(text);
    if (auto* reading = qobject_cast<TextPage*>(&page)) ShowRemarks(control, *reading);
  });
}

// Its text is the name of the page.
void Binder::JoinManual(TextBox& control, HelpView& manual) {
  connect(&manual, &HelpView::PageShown, this, [this, &control](const QString& name) {
    if (ToQt(control.Text()) == name) return;
    ActOn(control, [&control, shown = FromQt(name)] { control.UserEdit(shown); });
  });
  Follow(control, [&control, &manual] { manual.ShowPage(ToQt(control.Text())); });
}

void Binder::JoinList(ListBox& control, QComboBox& box) {
  box.setInsertPolicy(QComboBox::NoInsert);
  connect(&box, &QComboBox::activated, this, [this, &control](int index) {
    ActOn(control, [&control, index] { control.UserSelect(index); });
  });
  Follow(control, [this, &control, &box] {
    const QSignalBlocker quiet(box);
    ShowCommon(control, box);
    ShowItems(control, box);
    if (box.isEditable() != control.Editable()) {
      box.setEditable(control.Editable());
      JoinTyping(control, box.lineEdit());
    }
    if (box.currentIndex() != control.ListIndex()) box.setCurrentIndex(control.ListIndex());
    const QString text = ToQt(control.Text());
    if (control.Editable() && box.currentText() != text) box.setEditText(text);
  });
}

// A list that can be typed into has a line of its own for as long as it can.
void Binder::JoinTyping(ListBox& control, QLineEdit* line) {
  if (line == nullptr) return;
  connect(line, &QLineEdit::textEdited, this, [this, &control](const QString& text) {
    ActOn(control, [&control, typed = FromQt(text)] { control.UserEdit(typed); });
  });
}

void Binder::JoinTable(Table& control, TableView& view) {
  connect(&view, &TableView::Chose, this, [this, &control](const std::vector<std::size_t>& rows) {
    ActOn(control, [&control, rows] { control.UserSelect(rows); });
  });
  if (control.OnOpen) {
    connect(&view, &TableView::Opened, this,
            [this, &control] { ActOn(control, [&control] { control.UserOpen(); }); });
  }
  Follow(control, [this, &control, &view] {
    ShowCommon(control, view);
    view.Follow(control);
  });
}

}  // namespace quillmark
