#pragma once

#include <QHBoxLayout>

namespace quillmark {

// Notices on one line, in the order of their weight. Where there is no room for all, each has its
// least width, and what is left goes to the first ones: the last give way.
class NoticeRow : public QHBoxLayout {
 public:
  using QHBoxLayout::QHBoxLayout;

  void setGeometry(const QRect& room) override;
};

}  // namespace quillmark
