#include "link/port_watch.h"

namespace quillmark {

namespace {

// A device's node may outlast the device a little.
constexpr int mostLooks = 3;

}  // namespace

PortWatch::PortWatch(Platform& machine, frmOrvalent& window) : platform(machine), main(window) {}

PortWatch::~PortWatch() { platform.Events.StopTimer(*this); }

void PortWatch::Start() {
  if (number != platform.MSComm1.CommPort()) vanished = false;
  number = platform.MSComm1.CommPort();
  if (!platform.Ports.Present(number)) vanished = true;
  looksToCome = mostLooks;
  platform.Events.StartTimer(*this, Seconds(1));
}

void PortWatch::Stop() {
  platform.Events.StopTimer(*this);
  vanished = false;
  main.PortBack.Drop();
}

void PortWatch::Tick() {
  if (platform.MSComm1.PortOpen() || platform.MSComm1.CommPort() != number) return Stop();
  if (!platform.Ports.Present(number)) {
    vanished = true;
    main.PortBack.Drop();
  } else if (!vanished) {
    if (--looksToCome == 0) Stop();
  } else if (!main.PortBack.Visible()) {
    // What kept the last connect from working is over.
    main.ConnectFailed.Drop();
    main.PortBack.Tell("Radio's port is back. Connect", Connect);
  }
}

}  // namespace quillmark
