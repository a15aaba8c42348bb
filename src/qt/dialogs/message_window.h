#pragma once

#include <QDialog>
#include <QString>
#include <functional>
#include <string>
#include <string_view>

#include "platform/dialogs.h"

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace quillmark {

class FittingScrollArea;

// A message box: symbol, text, and the details as a second paragraph that can be copied. All texts
// are plain. On a screen that is too low for them they scroll, also by the keys for pages, above
// the buttons. Tests find it by its object names: "MessageBox", "messageText", "messageDetails",
// and for the buttons "Ok", "Cancel", "Yes" and so on.
class MessageWindow : public QDialog {
  Q_OBJECT

 public:
  MessageWindow(const MessageBox& box, QWidget* parent);

  // Shows the box until it is answered. Closing it gives CloseAnswer of its buttons.
  Answer Ask();
  // Keeps it within that size, in pixels.
  void StayWithin(QSize room);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeTexts(const MessageBox& box);
  void AddButtons(const MessageBox& box, QDialogButtonBox& row);

  FittingScrollArea* area;
  Answer answer;
};

// Asks the user for one line. A line with characters that the radio's alphabet does not have is not
// taken: a sentence below it names them, and the box stays. What else is wrong with it stands below
// it as it is typed, and then OK reads "Send anyway". Object names: "InputBox", "inputPrompt",
// "inputHint", "inputLine", "inputTrouble", "inputProblem", "Ok", "Cancel".
class InputWindow : public QDialog {
  Q_OBJECT

 public:
  InputWindow(const InputBox& box, QWidget* parent);

  // What was typed; empty on Cancel.
  QString Ask();

  void accept() override;

 private:
  // Shows the sentence on characters, or no longer.
  void TellTrouble(const QString& foreign);
  void AddLine(const InputBox& box, QVBoxLayout& column);
  void AddCheck(QVBoxLayout& column);
  void AddButtons(QVBoxLayout& column);
  void Judge();
  void ShowProblem(const QString& sentence);

  std::function<std::string(std::string_view)> check;
  QLineEdit* line;
  QLabel* trouble;
  QLabel* problem = nullptr;  // only where there is a check
  QPushButton* ok = nullptr;
  QString usualOk;
};

}  // namespace quillmark
