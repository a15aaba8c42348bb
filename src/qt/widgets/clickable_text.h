#pragma once

#include <QLabel>
#include <QPointer>

namespace quillmark {

// A text that may be clicked, by mouse or, where it takes the focus, by Enter and the space bar.
// Whether it may is told by SetClickable; it looks accordingly.
class ClickableText : public QLabel {
  Q_OBJECT

 public:
  explicit ClickableText(QWidget* parent = nullptr);

  void SetClickable(bool next);
  bool IsClickable() const { return clickable; }

 signals:
  void Clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

  // Something that the look depends on has changed.
  virtual void LookChanged() = 0;

  bool Hovered() const { return hovered; }
  bool Live() const { return clickable && isEnabled(); }

 private:
  bool clickable = false;
  bool hovered = false;
  bool pressed = false;
};

// The label in front of a value or an input; underlined, where it can be clicked, under the mouse
// and while it has the focus. It takes the focus in place of a value that does not.
class CaptionLabel : public ClickableText {
  Q_OBJECT

 public:
  using ClickableText::ClickableText;

  void TakeFocusInPlaceOfValue(bool take);

 protected:
  void LookChanged() override;

 private:
  bool inPlaceOfValue = false;
};

// A value of the radio, on one line. A value that can be clicked has a thin frame; the others are
// flat text in the same place. Its size does not depend on the value, so nothing moves when the
// value changes. A value that is too long ends in dots, and the tool tip has all of it. F1 clicks
// the label that explains it.
class ValueBox : public ClickableText {
  Q_OBJECT

 public:
  explicit ValueBox(QWidget* parent = nullptr);

  // What is wrong with the value, for the tool tip; a sign stands behind the value then. Empty:
  // nothing is.
  void SetMark(const QString& next);
  // The label may be deleted first.
  void SetCaption(CaptionLabel* next);
  // Of a link that is over: written fainter and aslant.
  void SetDimmed(bool next);
  // The one that was looked for: it is brought into view, with a thick edge.
  void SetFound(bool next);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void LookChanged() override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void LeaveMargins();
  void ComeIntoView();
  QString Elided() const;
  // The room of the value, ahead of the sign.
  QRect TextRoom() const;
  QFont SignFont() const;
  int SignWidth() const;
  void PaintSign(QPainter& painter) const;

  QString mark;
  QPointer<CaptionLabel> caption;
  bool dimmed = false;
  bool found = false;
};

}  // namespace quillmark
