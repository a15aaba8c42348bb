#include "qt/widgets/noted_items.h"

#include <QApplication>
#include <QComboBox>
#include <QPainter>

namespace quillmark {

namespace {

constexpr int noteRole = Qt::UserRole;
constexpr int mutedRole = Qt::UserRole + 1;
// Where notes begin, in average characters.
constexpr int noteColumn = 8;

}  // namespace

void NotedItems::SetNote(QComboBox& box, int index, const QString& note, bool muted) {
  const QString item = box.itemText(index);
  box.setItemData(index, note, noteRole);
  box.setItemData(index, muted, mutedRole);
  box.setItemData(index, note.isEmpty() ? item : item + QStringLiteral(", ") + note,
                  Qt::AccessibleTextRole);
}

void NotedItems::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  const bool selected = item.state.testFlag(QStyle::State_Selected);
  const auto group = index.data(mutedRole).toBool() ? QPalette::Disabled : QPalette::Active;
  const auto role = selected ? QPalette::HighlightedText : QPalette::Text;
  // On the colour of the choice even what is muted must be read.
  const QColor ink = item.palette.color(selected ? QPalette::Active : group, role);
  item.palette.setColor(QPalette::Text, ink);
  const QStyle* style = item.widget != nullptr ? item.widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

  QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
  room.setLeft(room.left() + item.fontMetrics.averageCharWidth() * noteColumn);
  painter->setPen(ink);
  painter->setFont(item.font);
  painter->drawText(
      room, Qt::AlignVCenter | Qt::TextSingleLine,
      item.fontMetrics.elidedText(index.data(noteRole).toString(), Qt::ElideRight, room.width()));
}

}  // namespace quillmark
