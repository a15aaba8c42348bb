#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/event_loop.h"
#include "session/received_text.h"

namespace quillmark {

// The radio's software revision: three characters of its version, read as a number. Each rule that
// depends on it says what it does while the revision is unknown.
struct Revision {
  std::string Text;

  // Empty when the text is no number.
  std::optional<double> Number() const;
  bool Known() const { return Number().has_value(); }
  // True when the revision is known and reaches the threshold.
  bool AtLeast(double threshold) const;
  // True when the revision is known and lies below the threshold.
  bool Below(double threshold) const;
};

// The revision in the value of a reply to "srev": it stands behind a part number of ten characters
// and its line end, as five characters such as 3.2.0.
std::string VersionIn(std::string_view value);
// Whether it looks like one: the points stand where they should, as far as five characters go.
bool HasVersionForm(std::string_view version);
// Its first, third and last character.
Revision RevisionOf(std::string_view version);

// The values that every window shares; they live for the whole run.
struct Session {
  ReceivedText RxBuffer;
  Revision SoftwareRevision;
  std::string InstalledFirmwareVersion;  // five characters, such as 3.2.0
  bool RefreshRequested = false;         // the next tick reads the radio
  bool InSetupMode = false;              // the radio answers with "SETUP>"
  bool RestoreLinkFailed = false;        // the store and restore window lost the radio
  bool TransferStop = false;             // the progress window closes, what it shows stops
  bool SplashAboutMode = false;
  bool PortChanged = false;  // the set-up window stored a port
  bool LocalEcho = false;

  bool ConnectOnLaunch = false;
  bool KeepAlive = true;
  bool LogoutOnQuit = true;
  bool PassEnabled = false;
};

// The main window's part of the link's state.
struct LinkState {
  bool ShowCommStatus = true;           // comm events may write the status panel
  bool TerminalEcho = true;             // received text goes into the terminal
  bool DiscardReceived = false;         // received text is thrown away
  bool EchoIsOff = false;               // the radio's, by our own "deco"
  bool LinkLetGo = false;               // the user closed it: a run that is under way ends with it
  bool NotConnected = false;            // the last connect failed, or the user closed the link
  bool ConnectCancelled = false;        // stop the wake attempt
  bool ConnectOnLaunchPending = false;  // the first tick connects
  bool LoginProbePending = false;       // the read cycle must find out who is logged in
  bool DirectPortMode = false;          // a scripted run reads the port itself
  bool PortTimedOut = false;            // the watchdog of a scripted run has fired
  int KeepAliveCount = 0;               // carriage returns sent to keep the link alive
  Duration NextKeepAlive{};             // monotonic
  std::int64_t ConnectStart = 0;        // local seconds; 0 before the first connect
};

}  // namespace quillmark
