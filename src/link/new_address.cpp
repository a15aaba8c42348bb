#include "link/new_address.h"

#include <cmath>

#include "text/numbers.h"

namespace quillmark {

void ValidateNewAddr(Dialogs& dialogs, std::string_view text) {
  const auto number = NumericValue(text);
  if (!number) {
    dialogs.Message(
        {"The ADDR entered is not numeric.\r\n\r\nThe value must be a number between 1 "
         "and 65000",
         "Invalid ADDR entered"});
    return;
  }
  const double address = RoundHalfEven(std::fabs(*number));
  if (address < 1 || address > 65000) {
    dialogs.Message({"The valid ADDR range is 1-65000.", "Invalid ADDR Entry"});
  }
}

}  // namespace quillmark
