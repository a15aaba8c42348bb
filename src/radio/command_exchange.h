#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/session.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"

namespace quillmark {

// One command and its reply: primes RxBuffer with a single blank, sends `text` and a carriage
// return, and waits until RxBuffer holds both `awaited` and ">", in whatever case, or `limit`
// has passed. The caller looks at RxBuffer to see which; the blank keeps every position in it one
// higher than in the reply. Only one exchange may run at a time. Ends early when the port is
// closed meanwhile; throws SerialError on one that is closed already.
void CommandExchange(Session& session, SerialPort& port, EventLoop& events, const std::string& text,
                     std::string_view awaited, Duration limit);

// The same with a condition of the caller's own in place of the two texts.
void CommandExchange(Session& session, SerialPort& port, EventLoop& events, const std::string& text,
                     Duration limit, const std::function<bool()>& answered);

}  // namespace quillmark
