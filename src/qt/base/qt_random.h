#pragma once

#include <cstdint>
#include <random>

#include "platform/random_source.h"

namespace quillmark {

// Chance that can be repeated: the same seed gives the same numbers.
class QtRandom : public RandomSource {
 public:
  void Seed(std::uint32_t seed) override { generator.seed(seed); }
  double Next() override { return std::uniform_real_distribution<double>(0, 1)(generator); }

 private:
  std::mt19937 generator;
};

}  // namespace quillmark
