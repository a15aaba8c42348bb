#pragma once

#include "controls/choices.h"
#include "controls/clickable.h"
#include "controls/form.h"
#include "controls/text_box.h"
#include "platform/desktop.h"
#include "platform/preference_store.h"
#include "session/session.h"

namespace quillmark {

// The program's preferences. Modal; OK puts them into force and stores them.
class frmPreferences : public Form {
 public:
  frmPreferences(PreferenceStore& store, Session& session, TextBox& terminal, Desktop& desktop);

  CheckBox ConnectOnLaunchCheck, KeepAliveCheck, LogoutCheck, HistoryCheck, PlanFirstCheck,
      BoldCheck;
  Label lblTextColor, lblBackgroundColor, lblTheme;
  ListBox TextColorList, BackgroundColorList, ThemeList;
  Button OKButton, CancelButton;

 private:
  void OKButton_Click();

  PreferenceStore& store;
  Session& session;
  TextBox& terminal;
  Desktop& desktop;
};

}  // namespace quillmark
