#pragma once

#include <functional>

#include "app/frmOrvalent.h"
#include "platform/platform.h"

namespace quillmark {

// Offers a connect when the device of the chosen port is back after it had vanished. Looks once a
// second from the end of a link or a failed connect on, as long as the device is away or the offer
// stands; else it is at rest.
class PortWatch : private Ticker {
 public:
  PortWatch(Platform& platform, frmOrvalent& main);
  ~PortWatch();
  PortWatch(const PortWatch&) = delete;
  PortWatch& operator=(const PortWatch&) = delete;

  // There is no link any more.
  void Start();

  // What a click on the offer does.
  std::function<void()> Connect;

 private:
  void Tick() override;
  void Stop();

  Platform& platform;
  frmOrvalent& main;
  int number = 0;       // of the port that is watched
  int looksToCome = 0;  // at a device that has not vanished
  bool vanished = false;
};

}  // namespace quillmark
