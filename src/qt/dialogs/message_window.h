#pragma once

#include <QDialog>

#include "platform/dialogs.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace quillmark {

// A message box: symbol, text, and the details as a second paragraph that can be copied. All texts
// are plain. Its object names ("MessageBox", "messageText", "messageDetails", and the buttons' own
// "Ok", "Cancel", "Yes", ...) are for whoever looks for them from outside.
class MessageWindow : public QDialog {
  Q_OBJECT

 public:
  MessageWindow(const MessageBox& box, QWidget* parent);

  // Shows the box until it is answered; closing it answers what CloseAnswer says.
  Answer Ask();

 private:
  QWidget* MakeTexts(const MessageBox& box);
  void AddButtons(const MessageBox& box, QDialogButtonBox& row);

  Answer answer;
};

// Asks for one line.
class InputWindow : public QDialog {
  Q_OBJECT

 public:
  InputWindow(const InputBox& box, QWidget* parent);

  // What was typed; empty on Cancel.
  QString Ask();

 private:
  QLineEdit* line;
};

}  // namespace quillmark
