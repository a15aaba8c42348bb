#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillmark {

// All text received since an exchange last primed it, unfiltered. Keeps the last 1 MiB at most,
// whatever the radio sends. Searches take View(), which is valid until the next change.
class ReceivedText {
 public:
  static constexpr std::size_t Limit = 1024 * 1024;  // bytes

  ReceivedText& operator=(std::string_view text);
  void Append(std::string_view text);

  std::string_view View() const { return std::string_view(store).substr(start); }
  operator std::string_view() const { return View(); }  // NOLINT(google-explicit-constructor)

  // Whether "CLOSED" stands in it, in whatever case. Kept up with each arrival, because it is asked
  // for at each one.
  bool HoldsClosed() const { return holdsClosed; }

 private:
  void LookForClosed(std::size_t from);

  std::string store;
  std::size_t start = 0;  // of the text within the store
  bool holdsClosed = false;
};

}  // namespace quillmark
