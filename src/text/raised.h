#pragma once

namespace quillmark {

// Holds a flag up for the length of a block.
class Raised {
 public:
  explicit Raised(bool& itsFlag) : flag(itsFlag) { flag = true; }
  ~Raised() { flag = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag;
};

}  // namespace quillmark
