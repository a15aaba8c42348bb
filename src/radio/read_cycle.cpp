#include "radio/read_cycle.h"

#include <algorithm>

#include "conversation/reply.h"
#include "platform/utilities.h"
#include "radio/login_probe.h"
#include "radio/row_from_reply.h"
#include "radio/view_rules.h"
#include "text/text.h"

namespace quillmark {

namespace {

constexpr Duration readTimeOut = Seconds(4);

// Nothing may stay unread that the radio might have, but for the rows that say so.
bool IsOffered(const Setting& setting, const Revision& revision) {
  if (!revision.Known() && !setting.Read->IfUnknown) return false;
  return setting.Revisions.HoldsIfUnknown(revision);
}

}  // namespace

ReadCycle::ReadCycle(Platform& machine, Session& shared, frmOrvalent& window, Connection& link,
                     Conversation& conversation)
    : platform(machine), session(shared), main(window), connection(link), radio(conversation) {}

bool ReadCycle::Run() {
  session.DropRead();
  const int began = radio.Epoch();
  last = {.Texts = {}, .Whole = false, .Epoch = began};
  missed = false;
  // A read that ends early must not leave the values of the one before as its own.
  for (SettingRow& row : main.Rows) row.CameLast = false;
  ReadProgress progress(platform.Events, main, connection, radio);
  if (!CheckRadio(progress)) return false;
  const auto isRead = [](const SettingRow& row) { return row.What.Read.has_value(); };
  const auto all = static_cast<int>(std::count_if(main.Rows.begin(), main.Rows.end(), isRead));
  int place = 0;
  for (SettingRow& row : main.Rows) {
    if (isRead(row)) {
      progress.Step(++place, all);
      ReadRow(row, progress);
    }
    // Somebody has connected anew meanwhile: that brings a read of its own.
    if (radio.Epoch() != began && radio.Open()) return false;
  }
  last.Whole = !missed && radio.Epoch() == began;
  // A link that ended in the last exchange has left that one without an answer.
  return radio.Epoch() == began && progress.AllAnswered();
}

void ReadCycle::ReadRow(SettingRow& row, ReadProgress& progress) {
  const SettingRead& read = *row.What.Read;
  std::optional<std::string> value;
  if (!IsOneOf(read.At, main.ModeText())) {
    row.ShowRead(NotAvailable);
  } else if (IsOffered(row.What, session.SoftwareRevision)) {
    value = Ask(row.What);
    Note(row.What, value);
    progress.Asked();
    if (value) row.ShowRead(RowText(row.What, *value));
    if (row.What.Id == SettingId::SoftRTU) {
      row.AllowClick(!Contains(radio.Received(), "SELECTED OPTION"));
    }
  }
  row.CameLast = value.has_value();
  AfterRow(row.What.Id, value);
  if (read.Pause) Pause80();
}

void ReadCycle::Note(const Setting& setting, const std::optional<std::string>& value) {
  // A name or a message may be empty; then the prompt comes alone.
  const bool empty = !value && *setting.Reply == '\0' && radio.CameLast() == Reply::State::Bare;
  const bool mayLack = setting.Revisions.Gated() && !session.SoftwareRevision.Known();
  const bool refused = value && IsRefusal(*value);
  if ((value && !refused) || empty) {
    last.Texts[setting.Id] = value ? UncutText(setting, *value, radio.Received()) : "";
  } else if (!(refused && mayLack)) {
    const bool ofFile = setting.Saved || setting.Restored ||
                        setting.Id == SettingId::SerialNumber ||
                        setting.Id == SettingId::SoftwareRev;
    missed = missed || ofFile;
  }
}

std::optional<std::string> ReadCycle::Ask(const Setting& setting) {
  auto value = radio.Ask({.Command = setting.Word,
                          .Limit = readTimeOut,
                          .Opening = setting.Reply,
                          .ManyLines = setting.Read->ManyLines});
  if (setting.Id == SettingId::SoftwareRev && value && !HasVersionForm(VersionIn(*value))) {
    value = radio.Ask({.Command = setting.Word, .Opening = setting.Reply, .ManyLines = true});
  }
  return value;
}

void ReadCycle::AfterRow(SettingId id, const std::optional<std::string>& value) {
  if (id == SettingId::SoftwareRev) TakeRevision(value);
  if (id == SettingId::OwnerName && value) FindLoginState(*value);
  if (id == SettingId::Mode) {
    main.ButtonZoneData.Enabled = true;
    ApplyModeRules(main, session.InSetupMode);
  }
}

bool ReadCycle::CheckRadio(ReadProgress& progress) {
  radio.Settle();
  radio.CommandExchange("", ">", readTimeOut);
  progress.Asked();
  // Somebody has let the radio go meanwhile: waking it would open the port behind their back.
  if (!radio.Open()) return false;
  if (!Contains(radio.Received(), ">")) connection.WakeLink();
  // The wake asks a sleeping radio more often than it answers.
  radio.ForgetLate();
  const bool inLoader = radio.LastPrompt() == PromptKind::Loader;
  if (inLoader) ShowInLoader();
  Pause80();
  return !inLoader;
}

void ReadCycle::ShowInLoader() {
  main.pnl_Status.Text = "Status: The radio is in its loader.";
  main.Timer2.Enabled = false;
  main.txtTerm.Text = main.txtTerm.Text() +
                      "\r\nThe radio is in its loader and has no settings to read. Load firmware "
                      "with \"" +
                      main.tbr_TransmitTextFile.Text() + "\" in the toolbar.\r\n";
}

// A reply without its prompt shows the revision too.
void ReadCycle::TakeRevision(const std::optional<std::string>& value) {
  constexpr std::string_view head = " srev\r\n";
  std::string_view reply = radio.Received();
  reply.remove_prefix(reply.starts_with(head) ? head.size() : reply.size());
  session.InstalledFirmwareVersion = VersionIn(value ? *value : reply);
  session.SoftwareRevision = RevisionOf(session.InstalledFirmwareVersion);
  ApplyRevisionRules(main, session.SoftwareRevision);
}

// Runs once for each connect. A name that can't be confirmed leaves it to the next cycle.
void ReadCycle::FindLoginState(const std::string& ownerName) {
  if (!main.LoginProbePending) return;
  const LoginProbe probe{.Word = "own", .Prefix = "own ", .Wait = Milliseconds(200)};
  const LoginState state = ProbeLogin(radio, probe, ownerName, [this](LoginState found) {
    main.txtTerm.Text = "";
    main.tbr_Login.Enabled = found == LoginState::Denied;
    main.tbr_Logout.Enabled = found != LoginState::Denied;
    main.ShowRefusesChanges(found == LoginState::Denied);
  });
  if (state == LoginState::Unknown) return;
  main.LoginProbePending = false;
  main.txtTerm.Text = "";
}

void ReadCycle::Pause80() {
  WaitMilliseconds(platform.Events, 80);
  platform.Events.Pump();
}

}  // namespace quillmark
