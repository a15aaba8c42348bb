#pragma once

#include <cstdint>
#include <functional>
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

// A flag that all may read and that only its owner changes, by a verb. It begins as False.
template <class Owner>
class FlagOf {
 public:
  operator bool() const { return raised; }  // NOLINT(google-explicit-constructor)

 private:
  friend Owner;
  bool raised = false;
};

// What the user wants to be kept between runs; these values hold when none are stored. Written by
// prefs/; PassEnabled also by the window that sets the radio's password.
struct StoredPreferences {
  bool ConnectOnLaunch = false;
  bool KeepAlive = true;
  bool LogoutOnQuit = true;
  bool PassEnabled = false;
  // Ask, with what it changes, before a radio is programmed from a file or preset. The desktop
  // program begins with True.
  bool PlanFirst = false;
  bool History = false;  // keep copies of what radios hold; the desktop program begins with True
};

// The values that every window shares; they live for the whole run.
struct Session : StoredPreferences {
  // --- What the radio says. Written by the conversation and the read cycle ---
  ReceivedText RxBuffer;
  Revision SoftwareRevision;
  std::string InstalledFirmwareVersion;  // five characters, such as 3.2.0
  bool InSetupMode = false;              // it answers with "SETUP>"; access/ sets it in advance

  // --- What the main window's timer does at its next tick. Asked for anywhere ---
  FlagOf<Session> RefreshRequested;  // read the radio
  void AskForRead() { RefreshRequested.raised = true; }
  void DropRead() { RefreshRequested.raised = false; }  // it begins, or there is nothing to read
  FlagOf<Session> RestoreLinkFailed;  // connect again: the store and restore window lost the radio
  void AskForReconnect() { RestoreLinkFailed.raised = true; }
  void DropReconnect() { RestoreLinkFailed.raised = false; }

  // --- A firmware transfer. Written by firmware/ ---
  FlagOf<Session> TransferStop;  // its window closes, and what that shows stops
  void BeginTransfer() { TransferStop.raised = false; }
  void StopTransfer() { TransferStop.raised = true; }

  // --- Windows ---
  bool SplashAboutMode = false;  // the splash window is up as About box; written by start/
  bool PortChanged = false;      // written by the set-up window when it stores a port
  bool LocalEcho = false;        // the terminal also shows typed keys by itself; always False
};

// The main window's part of the link's state.
struct LinkState {
  // --- Written by the connection ---
  bool NotConnected = false;       // the last connect failed, or the user closed the link
  bool ConnectCancelled = false;   // stop the wake attempt
  bool DiscardReceived = false;    // received text is thrown away
  bool TerminalEcho = true;        // received text goes into the terminal
  bool LoginProbePending = false;  // the read cycle must find out who is logged in, and clears it
  std::int64_t ConnectStart = 0;   // local seconds; 0 before the first connect
  Duration NextKeepAlive{};        // monotonic; moved on by the main window's timer
  int KeepAliveCount = 0;          // carriage returns that this timer has sent
  bool ConnectOnLaunchPending = false;  // set at the start; its first tick connects

  // --- Written by the conversation ---
  bool EchoIsOff = false;  // the radio's, by our own "deco"
  // The radio's transmitter, which bench test mode keys. Unknown: the link went while it was keyed.
  enum class Transmitter { Off, Keyed, Unknown };
  Transmitter TransmitterIs = Transmitter::Off;
  std::function<void()> OnTransmitter;  // told when that has changed; may be empty

  // --- Scripted runs ---
  FlagOf<LinkState> DirectPortMode;  // one reads the port itself
  void HoldPort() { DirectPortMode.raised = true; }
  void ReleasePort() { DirectPortMode.raised = false; }
  bool PortTimedOut = false;  // their watchdog has fired; they clear it
  bool LinkLetGo = false;     // the user closed the link: the run that is under way ends with it

  // --- Written by the firmware upgrade ---
  bool ShowCommStatus = true;  // comm events may write the status panel
};

}  // namespace quillmark
