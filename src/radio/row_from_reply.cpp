#include "radio/row_from_reply.h"

#include "conversation/reply.h"
#include "text/text.h"

namespace quillmark {

std::string RowText(const Setting& setting, const std::string& value) {
  const char* const refusal = setting.Read->Refusal;
  return *refusal != '\0' && Contains(value, refusal) ? NotAvailable : value;
}

std::string UncutText(const Setting& setting, const std::string& value, std::string_view received) {
  const Reply reply = FindReply(received, {.Command = setting.Word, .PromptInText = true});
  const bool cut = reply.Came == Reply::State::Whole && Contains(reply.Text, ">");
  return cut ? std::string(reply.Text) : value;
}

}  // namespace quillmark
