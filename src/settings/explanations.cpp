#include "settings/explanations.h"

namespace quillmark {

void WireExplanations(frmOrvalent& main, Dialogs& dialogs, const Session& session) {
  for (SettingRow& row : main.Rows) {
    if (!row.What.Manual) continue;
    row.Caption.OnClick = [&dialogs, &session, &page = *row.What.Manual] {
      const bool from200 = page.TextFrom200 != nullptr && session.SoftwareRevision.AtLeast(200);
      dialogs.Message({from200 ? page.TextFrom200 : page.Text, page.Title});
    };
  }
}

}  // namespace quillmark
