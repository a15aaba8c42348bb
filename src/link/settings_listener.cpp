#include "link/settings_listener.h"

namespace quillmark {

void ListenForSettings(Conversation& radio, frmOrvalent& main) {
  radio.OnSaid = [&main](const std::string& line) { main.Sent.Said(line); };
  radio.Answers.OnAnswer = [&main](const std::string& line, const LineAnswer& answer) {
    main.RadioAnswered(line, answer.Taken, answer.Words);
  };
}

}  // namespace quillmark
