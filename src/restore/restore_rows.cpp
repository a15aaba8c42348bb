#include "restore/restore_rows.h"

#include "text/text.h"

namespace quillmark {

namespace {

std::string Normalised(std::string_view text) {
  std::string plain;
  for (const char c : text) {
    if (c == ':' || (c == ' ' && (plain.empty() || plain.back() == ' '))) continue;
    plain += c;
  }
  return std::string(Trim(plain));
}

bool HasNoValue(std::string_view text) {
  return text.empty() || Contains(text, NoValue) || Contains(text, "NOT AVAILABLE");
}

}  // namespace

RestoreRow::RestoreRow(const Setting& setting)
    : What(&setting),
      Id(setting.Id),
      Check(setting.Restored->Check),
      Caption(setting.Restored->Caption),
      Current(setting.Name),
      New(std::string("New") + setting.Name),
      Word(setting.Word),
      Page(static_cast<std::size_t>(setting.View.On)),
      Top(setting.Restored->Top.value_or(setting.View.Top)),
      Shown(setting.Revisions),
      Read(setting.Restored->Read.value_or(setting.Revisions)),
      Loaded(setting.Restored->Loaded.value_or(setting.Revisions)),
      Mode(setting.Restored->Follows),
      Text(setting.Restored->Form) {}

std::vector<RestoreRow> RestoreRows(std::span<const Setting> settings) {
  std::vector<RestoreRow> rows;
  for (const Setting* setting : ProgramOrder(settings)) rows.emplace_back(*setting);
  return rows;
}

RestoreMatch MatchOf(std::string_view current, std::string_view next) {
  if (HasNoValue(current) || HasNoValue(next)) return RestoreMatch::Missing;
  return Normalised(current) == Normalised(next) ? RestoreMatch::Equal : RestoreMatch::Differs;
}

}  // namespace quillmark
