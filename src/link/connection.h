#pragma once

#include <functional>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "platform/platform.h"
#include "session/session.h"

namespace quillmark {

// Opens and closes the link to the radio: the port, the burst of characters that wakes the radio,
// the reset of its command session, and what the main window shows of it. Serial failures are shown
// here; only WakeLink throws them.
class Connection {
 public:
  Connection(Platform& platform, Session& session, frmOrvalent& main, Conversation& radio);

  void ConnectRadio();
  void DisconnectRadio();
  void LogoutRadio();
  // Opens the port and wakes the radio; on an open port it does so anew.
  void mnuOpen_Click();
  // Connects on a closed port, else asks for a read of the radio.
  void ButtonRefresh_Click();
  // Sends bursts until the radio shows a prompt, for 45 s at most. Throws SerialError.
  void WakeLink();

  // Shows on toolbar, lamp, menus and status bar that there is no link.
  void ShowDisconnected();
  void EnableRadioActions();
  void DisableRadioActions();

  void StartConnectTimer();
  // The time since the connect, as it is now.
  void ShowConnectTime();
  void StopConnectTimer();
  void StartPortTimeout() { main.tmrPortTO.Enabled = true; }
  void StopPortTimeout() { main.tmrPortTO.Enabled = false; }
  void Timer2_Timer();
  void tmrPortTO_Timer();

  // Told when the main window has begun to show a link, or that there is none.
  std::function<void()> OnConnected, OnDisconnected;
  // Called when the link was ended, by whomever. May be empty.
  std::function<void()> OnLinkEnded;

  // A connect is under way: no read of the radio may start in the middle of it.
  bool Connecting() const { return connecting; }

 private:
  void Connect();
  void Open();
  void TellNotAvailable(const SerialError& error);
  void OpenAndWake();
  void ShowPortClosed();
  void ResetPort();
  void AwaitPrompt();
  void SendClos();
  void ShowWaking(int dots);
  void ShowConnected();
  void EnableRadioMenus(bool enabled);
  void EnableQuickTasks(bool enabled);
  void ShowLamp(bool connected);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  Conversation& radio;
  bool connecting = false;
};

}  // namespace quillmark
