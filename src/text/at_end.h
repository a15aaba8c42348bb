#pragma once

#include <utility>

namespace quillmark {

// Calls `act` at the end of a block, whichever way it is left. `act` must not throw.
template <class Act>
class [[nodiscard]] AtEnd {
 public:
  explicit AtEnd(Act itsAct) : act(std::move(itsAct)) {}
  ~AtEnd() { act(); }
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;

 private:
  Act act;
};

// Holds a flag up for the length of a block: `const auto underWay = Raised(working);`
inline auto Raised(bool& flag) {
  flag = true;
  return AtEnd([&flag] { flag = false; });
}

}  // namespace quillmark
