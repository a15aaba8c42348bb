#include "app/notices.h"

namespace quillmark {

Notices::Notices(Form& form)
    : noticeStrip(form, &form, "noticeStrip"),
      Transmitting(form, &noticeStrip, "Transmitting"),
      NoAnswer(form, &noticeStrip, "NoAnswer"),
      ConnectFailed(form, &noticeStrip, "ConnectFailed"),
      PortBack(form, &noticeStrip, "PortBack"),
      NotLoggedIn(form, &noticeStrip, "NotLoggedIn"),
      Filtered(form, &noticeStrip, "Filtered"),
      LastRun(form, &noticeStrip, "LastRun"),
      CopyBefore(form, &noticeStrip, "CopyBefore"),
      FileDone(form, &noticeStrip, "FileDone"),
      LastRead(form, &noticeStrip, "LastRead") {}

}  // namespace quillmark
