#include "radio/command_exchange.h"

#include "text/text.h"

namespace quillmark {

void CommandExchange(Session& session, SerialPort& port, EventLoop& events, const std::string& text,
                     std::string_view awaited, Duration limit, std::string_view prompt) {
  session.RxBuffer = " ";
  const Duration sent = events.Now();
  port.Output(text + "\r");
  const Duration left = limit - (events.Now() - sent);
  // The prompt comes last and is quick to look for.
  WaitUntil(events, left, [&] {
    return Contains(session.RxBuffer, prompt) && Contains(session.RxBuffer, awaited);
  });
}

}  // namespace quillmark
