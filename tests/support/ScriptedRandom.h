// Chance that a test has written down.
#pragma once

#include <deque>

#include "platform/headless/SeededRandom.h"

namespace vintoral::test {

/// Draws what is next, and where nothing is written down what the seed gives.
class ScriptedRandom final : public SeededRandom {
 public:
  double Draw() override {
    if (Next.empty()) return SeededRandom::Draw();
    const double draw = Next.front();
    Next.pop_front();
    return draw;
  }
  /// The draws that make twelve times the digit `digit`.
  void Digits(int digit) {
    for (int i = 0; i < 12; ++i) {
      Next.push_back(0.0);
      Next.push_back((digit + 0.5) / 10);
    }
  }
  std::deque<double> Next;
};

}  // namespace vintoral::test
