#include "history/radio_history.h"

#include <utility>

#include "config/replaced_file.h"
#include "conversation/reply.h"
#include "platform/serial_port.h"

namespace quillmark {

namespace {

constexpr Duration mapTime = Seconds(2);

}  // namespace

RadioHistory::RadioHistory(Platform& machine, Session& shared, frmOrvalent& window,
                           ReadCycle& cycle, Conversation& conversation)
    : Store(machine.Files),
      platform(machine),
      session(shared),
      main(window),
      readCycle(cycle),
      radio(conversation) {}

void RadioHistory::NoteRead() {
  if (!session.History || !readCycle.Last().Whole) return;
  RadioCopy copy = CopyOf(main.Settings, readCycle.Last().Texts);
  const std::string folder = FolderName(copy.Serial);
  if (folder.empty()) return;
  const auto newest = Store.Newest(folder);
  if (newest && SameSettings(*newest, copy)) return;
  copy.Reason = "read";
  Keep(copy);
}

void RadioHistory::BeforeRun(const std::string& run) {
  beforeLastRun.clear();
  if (!session.History) return;
  RadioTexts texts;
  try {
    // The rows are older than what has been programmed since.
    if (session.RefreshRequested && radio.Open()) readCycle.Run();
    texts = Known();
    AskMap(texts);
  } catch (const SerialError&) {
    // The run will tell that the link is gone.
    texts = Known();
  }
  KeepBefore(run, texts);
}

void RadioHistory::BeforeRestore(const RadioTexts& shown) {
  beforeLastRun.clear();
  if (!session.History) return;
  RadioTexts texts = Known();
  for (const auto& [id, text] : shown) texts[id] = text;
  KeepBefore("restoring rows", texts);
}

// Another radio may hang on a link that was opened since.
RadioTexts RadioHistory::Known() const {
  return readCycle.Last().Epoch == radio.Epoch() ? readCycle.Last().Texts : RadioTexts{};
}

std::optional<RadioCopy> RadioHistory::Connected() const {
  RadioCopy copy = radio.Open() ? CopyOf(main.Settings, Known()) : RadioCopy();
  return copy.Lines.empty() ? std::nullopt : std::optional(std::move(copy));
}

void RadioHistory::AskMap(RadioTexts& texts) {
  const Setting& map = SettingOf(SettingId::XMAP);
  const auto serial = texts.find(SettingId::SerialNumber);
  if (serial == texts.end() || FolderName(serial->second).empty()) return;
  if (!radio.Open() || !session.SoftwareRevision.AtLeast(map.Revisions.From)) return;
  const auto value = radio.Ask({.Command = map.Word, .Limit = mapTime, .Opening = map.Reply});
  if (value && !IsRefusal(*value)) texts[map.Id] = *value;
}

void RadioHistory::KeepBefore(const std::string& run, const RadioTexts& texts) {
  RadioCopy copy = CopyOf(main.Settings, texts);
  if (FolderName(copy.Serial).empty() || copy.Lines.empty()) return;
  copy.Complete = copy.Complete && readCycle.Last().Whole;
  copy.Reason = "before " + run;
  beforeLastRun = Keep(copy);
}

std::filesystem::path RadioHistory::Keep(const RadioCopy& copy) {
  const std::int64_t now = platform.Events.UtcSeconds();
  try {
    auto file =
        Store.Add(FolderName(copy.Serial), CopyText(copy, platform.Desktop.ShortDate(), now), now);
    troubleTold = false;
    if (OnKept) OnKept();
    return file;
  } catch (const FileError& error) {
    if (!std::exchange(troubleTold, true) && Tell) {
      Tell(std::string("No copy of the radio's settings could be kept. ") + error.what());
    }
    return {};
  }
}

}  // namespace quillmark
