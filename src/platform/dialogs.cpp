#include "platform/dialogs.h"

namespace quillmark {

Answer CloseAnswer(Buttons choice) {
  switch (choice) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::YesNo:
      return Answer::No;
    case Buttons::AbortRetryIgnore:
      return Answer::Abort;
    case Buttons::OkCancel:
    case Buttons::YesNoCancel:
    case Buttons::RetryCancel:
      break;
  }
  return Answer::Cancel;
}

Answer Refusal(Buttons choice) {
  return choice == Buttons::YesNoCancel ? Answer::No : CloseAnswer(choice);
}

}  // namespace quillmark
