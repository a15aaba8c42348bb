#include "qt/widgets/notice_row.h"

#include <QList>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace quillmark {

void NoticeRow::setGeometry(const QRect& room) {
  QBoxLayout::setGeometry(room);
  QList<QLayoutItem*> shown;
  int spare = room.width() + spacing();
  for (int i = 0; i < count(); ++i) {
    if (itemAt(i)->isEmpty()) continue;
    shown += itemAt(i);
    spare -= itemAt(i)->minimumSize().width() + spacing();
  }
  int left = room.left();
  for (QLayoutItem* item : shown) {
    const int least = item->minimumSize().width();
    const int more = std::clamp(item->sizeHint().width() - least, 0, std::max(0, spare));
    const QRect place(left, room.top(), least + more, room.height());
    item->setGeometry(QStyle::visualRect(parentWidget()->layoutDirection(), room, place));
    spare -= more;
    left += place.width() + spacing();
  }
}

}  // namespace quillmark
