#pragma once

#include <cstdint>

namespace quillmark {

// Random numbers for the pauses of a wake attempt.
class RandomSource {
 public:
  virtual ~RandomSource() = default;

  virtual void Seed(std::uint32_t seed) = 0;
  // From 0 up to, not including, 1.
  virtual double Next() = 0;
};

}  // namespace quillmark
