#pragma once

#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/port_list.h"
#include "platform/preference_store.h"
#include "platform/program_files.h"
#include "platform/random_source.h"
#include "platform/serial_port.h"
#include "platform/windows.h"

namespace quillmark {

// The machine, as the logic sees it. All members outlive the program's windows. Code that needs one
// or two members takes those; code that needs more takes the whole.
struct Platform {
  EventLoop& Events;
  quillmark::Dialogs& Dialogs;
  quillmark::Windows& Windows;
  SerialPort& MSComm1;
  SerialPort& MSComm2;
  PortList& Ports;
  PreferenceStore& Preferences;
  ProgramFiles& Files;
  quillmark::Desktop& Desktop;
  RandomSource& Random;
};

}  // namespace quillmark
