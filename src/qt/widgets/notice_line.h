#pragma once

#include <QPushButton>

namespace quillmark {

// A sentence that stands beside others on one line, behind a mark. It takes the room that its text
// needs; where there is less, paths in it lose their middle first, then it ends in dots. The tool
// tip has all of it. It looks like a link
// where it can be clicked, else like a text, and then takes no focus.
class NoticeLine : public QPushButton {
  Q_OBJECT

 public:
  explicit NoticeLine(QWidget* parent = nullptr);

  void SetSentence(const QString& next);
  void SetClickable(bool next);
  bool IsClickable() const { return clickable; }
  // What is seen of the sentence.
  QString Shown() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QSize SizeFor(int textWidth) const;
  int MarkWidth() const;
  QRect TextRoom() const;
  void SpeakUp();

  QString sentence;
  bool clickable = false;
  bool hovered = false;
};

}  // namespace quillmark
