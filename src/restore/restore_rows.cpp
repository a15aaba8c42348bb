#include "restore/restore_rows.h"

#include "catalogue/same_value.h"

namespace quillmark {

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

std::string RestoreRow::Subject() const {
  const std::string_view caption = Caption;
  return std::string(caption.substr(caption.find(' ') + 1));
}

RestoreMatch MatchOf(const RestoreRow& row, std::string_view current, std::string_view next) {
  if (!IsValue(*row.What, current) || !IsValue(*row.What, next)) return RestoreMatch::Missing;
  return SameValue(*row.What, current, next) ? RestoreMatch::Equal : RestoreMatch::Differs;
}

}  // namespace quillmark
