#pragma once

#include <QDialog>
#include <QString>

#include "platform/dialogs.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace quillmark {

// A message box: symbol, text, and the details as a second paragraph that can be copied. All texts
// are plain. Tests find it by its object names: "MessageBox", "messageText", "messageDetails", and
// for the buttons "Ok", "Cancel", "Yes" and so on.
class MessageWindow : public QDialog {
  Q_OBJECT

 public:
  MessageWindow(const MessageBox& box, QWidget* parent);

  // Shows the box until it is answered. Closing it gives CloseAnswer of its buttons.
  Answer Ask();

 private:
  QWidget* MakeTexts(const MessageBox& box);
  void AddButtons(const MessageBox& box, QDialogButtonBox& row);

  Answer answer;
};

// Asks the user for one line. A line with characters that the radio's alphabet does not have is not
// taken: a sentence below it ("inputTrouble") names them, and the box stays.
class InputWindow : public QDialog {
  Q_OBJECT

 public:
  InputWindow(const InputBox& box, QWidget* parent);

  // What was typed; empty on Cancel.
  QString Ask();

  void accept() override;

 private:
  // Shows the sentence, or no longer.
  void TellTrouble(const QString& foreign);

  QLineEdit* line;
  QLabel* trouble;
};

}  // namespace quillmark
