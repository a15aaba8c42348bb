#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

#include "session/session.h"

namespace quillmark {

// What one setting of the radio is: a row of the catalogue. A row is written with designated
// initializers, one line a fact; what a row leaves out has the value that is given here.

// The settings, in the order in which a read of the main window asks for them.
enum class SettingId : std::size_t {
  SerialNumber,
  UnitAddr,
  SoftwareRev,
  OwnerName,
  OwnerMessage,
  Temperature,
  AlarmInfo,
  Mode,
  PowerLevel,
  BaudRate,
  Port,
  DeviceType,
  AlarmMask,
  AlarmSense,
  CTSdelay,
  CTSHOLDdelay,
  RxTimeOut,
  RXD,
  SleepMode,
  LPMHOLD,
  NetworkAddress,
  CSADDR,
  HopTime,
  SkippedZones,
  LPM,
  RepeatCount,
  RetryCount,
  FEC,
  DataBuff,
  StoreAndForward,
  XADDR,
  XMIN,
  XMAX,
  XMAP,
  XPRI,
  XRSSI,
  ShowSync,
  DTYPE,
  DLINK,
  SoftRTU,
  DiagOptions
};

// The revisions for which something holds.
struct RevisionGate {
  double From = -std::numeric_limits<double>::infinity();
  double Below = std::numeric_limits<double>::infinity();

  // False when it holds for all.
  constexpr bool Gated() const {
    return From > -std::numeric_limits<double>::infinity() ||
           Below < std::numeric_limits<double>::infinity();
  }
  // An unknown revision counts as below every threshold.
  bool HoldsBelowIfUnknown(const Revision& revision) const;
  // An unknown revision passes.
  bool HoldsIfUnknown(const Revision& revision) const;
};

inline constexpr RevisionGate below200{.Below = 200};
inline constexpr RevisionGate from100{.From = 100};
inline constexpr RevisionGate from200{.From = 200};
inline constexpr RevisionGate from300{.From = 300};
inline constexpr RevisionGate from320{.From = 320};

// The modes of a radio in which something holds.
enum class Modes { All, Master, NotMaster, NotRemote, MasterOrExtension };

// Whether the text of the mode row, such as "MODE M" in whatever case, is of one of these modes.
bool IsOneOf(Modes modes, std::string_view modeText);

// Where a row stands: beside the tabs of the main window, or on one of them. In the store and
// restore window each is a tab.
enum class Tab : std::size_t {
  General,  // beside the tabs
  Radio1,
  Radio2,
  Network1,
  Network2,
  StoreAndForward,
  Diagnostics
};
inline constexpr std::size_t FirstTab = 1;  // of the main window
inline constexpr std::size_t TabCount = 7;
static_assert(static_cast<std::size_t>(Tab::Radio1) == FirstTab);
static_assert(static_cast<std::size_t>(Tab::Diagnostics) + 1 == TabCount);

// How a value is written.
enum class ValueForm {
  Plain,     // a number from Least to Most, or one of Words
  Text,      // up to Longest characters, every one counts
  Unit,      // a number from Least to Most, or exactly Digits digits
  Rate,      // one of Words, a Format, or both in this order
  Switched,  // as a plain one, ON or OFF, or both in this order
  Mask,      // exactly Digits hexadecimal digits, with blanks anywhere
  Map,       // up to Digits hexadecimal digits, likewise
  Zones      // one of Words, or up to Digits digits from Least to Most, with "," and blanks
};

// What the radio takes; bounds.h tells it in words. The radio alone judges a value: these are for
// what the user is told beforehand, the default set, and the tests.
struct SettingValue {
  ValueForm Form = ValueForm::Plain;
  std::optional<int> Least{};         // numbers
  std::optional<int> Most{};          // numbers
  std::optional<int> MostBelow200{};  // where revisions below 200 take more
  std::optional<int> Longest{};       // characters of a free text
  std::optional<int> Digits{};        // of the forms that name them
  const char* Unit = "";              // printed behind the number, and taken there
  const char* CountsIn = "";          // what a number counts, where the radio prints no unit
  const char* Words = "";             // taken as they are, with "|" between them
  const char* Format = "";            // of a rate: what each character may be, "|" between them
  const char* Factory = nullptr;      // what the default set gives it; null: it leaves it alone
};

// Its row in the main window.
struct SettingView {
  const char* Label;  // the label's control
  const char* Caption;
  const char* Tip = "";  // of the value; a row without one can't be clicked
  const char* Start = "n/a";
  Tab On;
  double Top;                  // twips from the top of its frame
  double Threshold = 0;        // below this revision it stands at TopBelow, in both windows
  double TopBelow = 0;         // twips
  Modes Clicked = Modes::All;  // in which a shown row can be clicked
};

// How a read of the main window asks for it.
struct SettingRead {
  bool ManyLines = false;    // in the reply
  bool IfUnknown = true;     // read too when the revision is unknown
  Modes At = Modes::All;     // elsewhere nothing is asked, and the row shows "NOT AVAILABLE"
  const char* Refusal = "";  // a reply that holds it shows "NOT AVAILABLE"
  bool Pause = false;        // 80 ms behind it
};

enum class InputWay {
  Usual,
  WholeCommand,  // an answer that holds "ADDR" goes out as it is
  PromptAlone,   // the radio's consent is not waited for, its prompt is enough
  Colon,         // the radio prints the word with a colon, which goes too
  Negative       // an answer without a minus gets one
};

// A click asks for a value in an input box. The answer loses the word, and goes out behind the
// command.
struct SettingInput {
  const char* Title;
  const char* Prompt;
  const char* PromptFrom200 = nullptr;  // instead of Prompt, from revision 200 on
  const char* Strips = "";              // what the answer loses, in whatever case
  bool KeepsBlank = false;              // the blank that ends it stays in the answer
  Modes At = Modes::All;                // elsewhere a click does nothing
  InputWay Way = InputWay::Usual;
};

// A click asks whether to turn it on or off.
struct SettingSwitch {
  const char* Title;
  const char* Turns;  // "Turn ... off?"
  Modes At;           // elsewhere a click does nothing
};

enum class SavedCut {
  Tail,       // from the word to the reply's last three characters
  Owner,      // the whole text behind the command
  SixWide,    // at most 6 characters from the word
  TenWide,    // at most 10 characters from the word
  AlarmMask,  // "MASK: x" becomes "AMASK x"
  NoColon,    // the tail without its colon
  Dlink       // up to the last blank, and a line for on or off
};

// How the main window saves it: what is asked of the radio and how a line is cut out of the reply,
// whose own wording is what is stored. Only a revision that lacks the setting may refuse it.
struct SettingSaved {
  const char* Command = nullptr;  // null: the setting's word
  const char* Reply = nullptr;    // looked for in the reply; null: the setting's Reply
  SavedCut Cut = SavedCut::Tail;
  bool MasterOnly = false;
  const char* NotWith = nullptr;      // a reply that holds this gives no line
  const char* LineWithout = nullptr;  // the line for a reply without the word
  bool Panel = true;                  // the status panel shows it
  bool Dot = true;                    // the terminal shows a dot
};

// Which mode of the radio a row of the store and restore window waits for.
enum class RestoreFollows {
  None,
  Master,          // a master, as a read and a load see it
  MasterAndTick,   // a master, also when the tick of the mode row decides
  NotMaster,       // the sleep row: not a master; by the tick, a remote alone
  NotRemoteAtLoad  // not a remote, as a load sees it
};

// How the text of a field becomes a command or a line of a file.
enum class RestoreForm {
  Line,        // it is the line
  Owner,       // the line without its word
  AlarmMask,   // "MASK: " and the digits
  AlarmSense,  // printed under another word than it is programmed
  Switched     // a value and "(ON)" or "(OFF)", two lines in one
};

// Its row in the store and restore window, which also makes it a setting of a file.
struct SettingRestored {
  const char* Check;  // the box's control
  const char* Caption;
  std::optional<double> Top{};  // twips, where it is not that of the main window
  const char* Key = nullptr;    // what a line of a file is known by; null: the word in capitals
  std::optional<RevisionGate> Read{};    // which radios are asked, where not all that show it
  std::optional<RevisionGate> Loaded{};  // which radios a file's line is taken for, likewise
  RestoreFollows Follows = RestoreFollows::None;
  RestoreForm Form = RestoreForm::Line;
  bool SavedAtMasterOnly = false;
  const char* MasterOnlyReply = nullptr;  // a reply that holds it shows "MASTER ONLY"
  const char* NotSavedWith = nullptr;     // a field that holds it gives no line
};

// What a click on its label explains.
struct SettingManual {
  const char* Title;
  const char* Text;
  const char* TextFrom200 = nullptr;  // instead of Text, from revision 200 on
};

struct Setting {
  SettingId Id;
  const char* Name;        // of the value's control in both windows
  const char* Word;        // reads it, and programs it with a value behind; small letters
  const char* Reply = "";  // what the radio's reply begins with, in whatever case; empty: any text
  RevisionGate Revisions{};  // that have it
  SettingValue Value{};
  SettingView View;
  std::optional<SettingRead> Read{};
  std::optional<SettingInput> Input{};
  std::optional<SettingSwitch> Switch{};
  bool OwnClick = false;  // a click on it has a handler of its own
  std::optional<SettingSaved> Saved{};
  std::optional<SettingRestored> Restored{};
  std::optional<SettingManual> Manual{};
};

}  // namespace quillmark
