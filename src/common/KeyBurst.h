// Characters that follow one another faster than a hand types: a reader's.
#pragma once

#include <cstdint>
#include <string>

namespace vintoral {

class KeyBurst {
 public:
  /// Milliseconds between two characters that a hand is not faster than.
  static constexpr std::int64_t kGap = 50;

  /// `ticks`: milliseconds of one clock, as everywhere here.
  void Add(char character, std::int64_t ticks) {
    if (!Continues(ticks)) text_.clear();
    text_ += character;
    last_ = ticks;
  }
  /// Would a character of now belong to it?
  bool Continues(std::int64_t ticks) const {
    const std::int64_t gap = ticks - last_;  // below 0 where the clock has begun anew
    return !text_.empty() && gap >= 0 && gap < kGap;
  }
  const std::string& Text() const { return text_; }
  void Clear() { text_.clear(); }

 private:
  std::string text_;
  std::int64_t last_ = 0;
};

}  // namespace vintoral
