#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "app/frmOrvalent.h"
#include "conversation/conversation.h"
#include "history/copy_store.h"
#include "platform/platform.h"
#include "radio/read_cycle.h"
#include "session/session.h"

namespace quillmark {

// Keeps copies of what radios hold: of each whole read that brought something new, and before each
// run that overwrites a radio. Nothing that goes wrong with it keeps anybody from working. The
// preference "History" switches it off.
class RadioHistory {
 public:
  RadioHistory(Platform& platform, Session& session, frmOrvalent& main, ReadCycle& readCycle,
               Conversation& radio);

  // A read has ended.
  void NoteRead();
  // A run is about to overwrite the radio; it has the line. Asks the radio for its extension map,
  // which no read brings, and reads it first if a read is due.
  void BeforeRun(const std::string& run);
  // Rows are about to be restored; the window has read these texts.
  void BeforeRestore(const RadioTexts& shown);

  // What the connected radio held at its last read; nothing without a radio or a read of it.
  std::optional<RadioCopy> Connected() const;

  // Told when a copy has been kept. May be empty.
  std::function<void()> OnKept;
  // Told a sentence when a copy can't be kept; not again before one could. May be empty.
  std::function<void(const std::string&)> Tell;
  // The copy from before the last run; empty without one.
  const std::filesystem::path& BeforeLastRun() const { return beforeLastRun; }

  CopyStore Store;

 private:
  // What the radio holds, as far as it has been read on this link.
  RadioTexts Known() const;
  void AskMap(RadioTexts& texts);
  void KeepBefore(const std::string& run, const RadioTexts& texts);
  // Empty when it could not be kept.
  std::filesystem::path Keep(const RadioCopy& copy);

  Platform& platform;
  Session& session;
  frmOrvalent& main;
  ReadCycle& readCycle;
  Conversation& radio;
  std::filesystem::path beforeLastRun;
  bool troubleTold = false;
};

}  // namespace quillmark
