#include "radio/command_exchange.h"

#include "text/text.h"

namespace quillmark {

void CommandExchange(Session& session, SerialPort& port, EventLoop& events, const std::string& text,
                     Duration limit, const std::function<bool()>& answered) {
  session.RxBuffer = " ";
  const Duration sent = events.Now();
  port.Output(text + "\r");
  // A port that was closed meanwhile brings nothing more.
  WaitUntil(events, limit - (events.Now() - sent), [&] { return answered() || !port.PortOpen(); });
}

void CommandExchange(Session& session, SerialPort& port, EventLoop& events, const std::string& text,
                     std::string_view awaited, Duration limit) {
  // The prompt comes last and is quick to look for.
  CommandExchange(session, port, events, text, limit, [&] {
    return Contains(session.RxBuffer, ">") && Contains(session.RxBuffer, awaited);
  });
}

}  // namespace quillmark
