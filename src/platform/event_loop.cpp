#include "platform/event_loop.h"

#include <exception>

namespace quillmark {

void EventLoop::Deliver(const std::function<void()>& handler) noexcept {
  try {
    handler();
  } catch (const Shutdown&) {
    return;
  } catch (const std::exception& error) {
    Defect(error.what());
  } catch (...) {
    Defect("an unknown exception");
  }
}

}  // namespace quillmark
