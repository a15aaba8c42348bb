#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "conversation/line_answers.h"
#include "conversation/line_turns.h"
#include "conversation/reply.h"
#include "platform/event_loop.h"
#include "platform/serial_port.h"
#include "session/session.h"

namespace quillmark {

// The conversation with the radio on one serial port. Whatever is said to a radio goes through one
// of these: it primes and fills RxBuffer, follows the prompts, knows whether the radio echoes, cuts
// replies, and asks again what was hurt on the line. There is one for the main window's port and
// one for that of the store and restore window. Sending throws SerialError on a closed port.
//
// Only one exchange may run at a time: Turns tells whose turn it is.
class Conversation {
 public:
  // Who takes what the port has received.
  enum class Hears {
    ByEvents,  // the receive handler calls Hear, but for scripted runs, under DirectPortMode
    Itself,    // waits take the port's input themselves
  };

  Conversation(SerialPort& port, EventLoop& events, Session& session, LinkState& link, Hears hears);
  Conversation(const Conversation&) = delete;
  Conversation& operator=(const Conversation&) = delete;

  // Whose turn it is. Who talks takes a turn first.
  LineTurns Turns;

  // --- What comes in ---

  // Takes what has been received; gives the part of it that may be shown and logged: nothing of
  // the reply to a secret.
  std::string Hear(std::string_view received);
  // The same for what is thrown away while the port is reset: a blank takes its place.
  void Discard(std::string_view received);
  // Takes the port's input and hears it.
  void Take();
  // The same where waits do so, else nothing.
  void TakeIfItself() {
    if (TakesItself()) Take();
  }
  // All that has come since the last priming.
  std::string_view Received() const { return session.RxBuffer; }
  // RxBuffer afresh: with a single blank, so that every position in it is one higher than in the
  // reply; or really empty.
  void Prime() { session.RxBuffer = " "; }
  void Clear() { session.RxBuffer = ""; }
  // The last prompt that came at the head of a line.
  PromptKind LastPrompt() const { return lastPrompt; }
  // Something has come since the last priming.
  bool HasBegun() const { return Received().size() > 1; }
  // What has come since the last priming ends in a prompt.
  bool AtPrompt() const { return PromptAtEnd(session.RxBuffer) != PromptKind::None; }
  // Lines that were sent and have not drawn their prompt so far.
  int PromptsDue() const { return due; }
  // Since the last byte went either way.
  Duration QuietFor() const { return events.Now() - lastByte; }

  // Since the last byte came from the radio, or since the link began.
  Duration SilentFor() const { return events.Now() - lastHeard; }

  // --- Sending without waiting ---

  // A line and its carriage return. `prompts` of them answer it.
  void Say(const std::string& line, int prompts = 1);
  // Bytes as they are; each carriage return among them draws a prompt.
  void SayBytes(const std::string& bytes);
  // A line with a secret in it, the echo switched off before. A radio may echo against its orders:
  // what it says up to its prompt is neither shown nor logged. False, and nothing sent, when the
  // echo was switched on again or the link went meanwhile.
  bool SaySecret(const std::string& line);

  // --- Exchanges ---

  // A command that is answered by a value, and how its reply is judged.
  struct Question {
    std::string Command;
    Duration Limit = Seconds(4);
    // A radio that has begun to answer gets that long instead, if it is longer.
    Duration LimitOnceBegun{};
    // What a value begins with, in whatever case; empty: any text. A value that does not, or holds
    // a ">", or has another length than such values have, is doubtful unless the radio says that it
    // has none.
    std::string_view Opening{};
    // The value may have several lines; else one with a control character is doubtful.
    bool ManyLines = false;
    // A pause, without events, ahead of the first look at what has come.
    Duration FirstLook{};
    // The radio echoes. Without: a run has switched its echo off, and it must stay off.
    bool Echo = true;
    // A refusal of the radio is an answer like any other.
    bool TakesRefusal = true;
    // What a ">" in the value does: it ends the value, as ValueOf tells; it stays; or it makes it
    // no value.
    enum class Bracket { Ends, Stays, Spoils } InValue = Bracket::Ends;
  };
  // Asks for a value. Echo and framing are checked; a reply that was hurt, or came with the echo
  // in the wrong state, is asked for once more, the echo put right before. A doubtful value is
  // asked for until the same one has come twice, three times at most. Nothing when none comes in
  // time or the last one is no better; RxBuffer holds what came last.
  std::optional<std::string> Ask(const Question& question);
  // How the last reply to Ask came.
  Reply::State CameLast() const { return cameLast; }

  // Primes, sends, and waits until RxBuffer holds both `awaited` and ">", in whatever case, or the
  // limit has passed; tells whether both came.
  bool CommandExchange(const std::string& text, std::string_view awaited, Duration limit);
  // Waits, delivering events unless the port's input is taken without them, until `done` holds,
  // the port is closed, or the limit has passed. Tells whether it holds.
  bool AwaitText(Duration limit, const std::function<bool()>& done);
  // A pause that delivers events, so that the window stays alive. What comes in meanwhile waits at
  // the port until it is over, as it does in a sleep. Ends early when `over` holds, which is asked
  // after each event, or when the link is another one.
  void Rest(Duration time, const std::function<bool()>& over);
  // What comes in now is to stay at the port.
  bool Resting() const { return resting; }
  // Asked in every wait: a run that has failed by other means ends them. May be empty.
  std::function<bool()> GivenUp;
  // Told when a question is asked once more. May be empty.
  std::function<void()> AskingAgain;
  // Told of each line that Say has sent; of no secret. May be empty.
  std::function<void(const std::string& line)> OnSaid;
  // What the radio answers to these lines.
  LineAnswers Answers;
  // Waits until every line has its prompt, or nothing has come for `quiet`, `limit` at most. From
  // then on no prompt is due; those that did not come are taken for late.
  void Settle(Duration quiet = Milliseconds(500), Duration limit = Seconds(10));
  // Another program part talks to the radio from here on. What the radio still says to it is waited
  // for before the next question.
  void HandOver() { handedOver = true; }
  // Prompts that did not come so far will not come any more.
  void ForgetLate() {
    late = 0;
    secretDue = false;
  }
  // Waits until nothing has come for `quiet`, `limit` at most.
  void AwaitQuiet(Duration quiet, Duration limit);

  // --- The echo ---

  // "deco" or "eeco", followed up to its own prompt, 0.5 s at most, and said again once if the
  // radio has not understood it. True when the radio has done it. EchoIsOff tells what the radio
  // did. Without an answer it is True after "deco" and as before after "eeco".
  bool SwitchEcho(bool on, std::string_view afterReturn = "");

  // Before the end of a link: says "eeco" when the echo may be off; the answer is not waited for.
  void LeaveEchoOn();

  // --- The link ---

  // The port is about to be opened: Restart, and the radio is taken to echo.
  void BeginLink();

  // The port was opened or closed: nothing is due any more, and runs of before are over.
  void Restart();
  // Changes with each Restart: whoever waited meanwhile must not go on.
  int Epoch() const { return epoch; }
  bool Open() const { return port.PortOpen(); }

 private:
  bool TakesItself() const { return hears == Hears::Itself || link.DirectPortMode; }
  void Follow(char byte);
  void SeePrompt(PromptKind kind);
  void EndOldSecret();
  void Sent(int prompts);
  void Send(const std::string& line, int prompts);
  void FollowKeying(std::string_view line);
  void SeeKeyingPrompt(PromptKind kind);
  void SetTransmitter(LinkState::Transmitter next);
  // What asking once has brought.
  struct Asked {
    bool AskAgain = false;
    std::optional<std::string> Value{};  // when asking again: one that is right if it comes twice
  };
  // `doubtful` is the value that asking before has brought and that may be wrong.
  Asked AskOnce(const Question& question, const std::optional<std::string>& doubtful);
  Reply AwaitReply(const Question& question);
  // Settles what the reply tells about the radio's echo.
  void FollowEcho(const Question& question, const Reply& reply);
  // `joined`: the radio may have heard the question as a part of the line before.
  Asked Judge(const Question& question, const Reply& reply, bool joined,
              const std::optional<std::string>& doubtful);
  // Whether the whole reply that has come is that of an earlier line: a further one follows it.
  bool IsLateReply();
  bool Decided(const Reply& reply) const;
  bool EchoReplyIsGood(const std::string& word) const;

  SerialPort& port;
  EventLoop& events;
  Session& session;
  LinkState& link;
  Hears hears;

  std::string lineHead;  // of the line that is coming in; no more of it than a prompt is long
  PromptKind lastPrompt = PromptKind::None;
  int due = 0;
  Reply::State cameLast = Reply::State::Whole;
  int late = 0;            // prompts that have not come in time, and may still come
  bool secretDue = false;  // the reply to a secret is coming
  bool handedOver = false;
  bool resting = false;
  std::string saidHead;                 // of the line that goes out byte by byte
  std::optional<std::string> unkeying;  // what has come since the transmitter was to be unkeyed
  int echoSwitches = 0;                 // so many were begun
  Duration lastByte{};
  Duration lastHeard{};
  int epoch = 0;
};

}  // namespace quillmark
