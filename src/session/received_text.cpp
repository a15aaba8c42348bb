#include "session/received_text.h"

#include "text/text.h"

namespace quillmark {

namespace {
constexpr std::string_view closedWord = "CLOSED";
}

ReceivedText& ReceivedText::operator=(std::string_view text) {
  store = text;
  start = 0;
  holdsClosed = false;
  LookForClosed(0);
  return *this;
}

void ReceivedText::Append(std::string_view text) {
  const std::size_t before = store.size();
  store.append(text);
  if (store.size() - start > Limit) start = store.size() - Limit;
  if (start > Limit) {
    store.erase(0, start);
    start = 0;
    holdsClosed = false;
    LookForClosed(0);
    return;
  }
  const std::size_t overlap = closedWord.size() - 1;
  LookForClosed(before > overlap ? before - overlap : 0);
}

void ReceivedText::LookForClosed(std::size_t from) {
  if (from < start) from = start;
  if (!holdsClosed) holdsClosed = Contains(std::string_view(store).substr(from), closedWord);
}

}  // namespace quillmark
