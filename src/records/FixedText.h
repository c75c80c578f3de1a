// A text field of a register: N bytes of Windows-1252, left-justified, padded with blanks, never terminated.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "common/String.h"

namespace vintoral {

template <std::size_t N>
class FixedText {
 public:
  static constexpr std::size_t kWidth = N;

  constexpr FixedText() { bytes_.fill(' '); }
  /// Cut at the field's width.
  FixedText(std::string_view text) {
    *this = text;
  }  // NOLINT(google-explicit-constructor): a field takes text
  FixedText& operator=(std::string_view text) {
    bytes_.fill(' ');
    std::copy_n(text.begin(), std::min(text.size(), N), bytes_.begin());
    return *this;
  }

  /// All N bytes.
  std::string_view View() const { return {bytes_.data(), N}; }
  /// Without the blanks around it.
  String Trimmed() const { return Trim(View()); }
  std::array<char, N>& Bytes() { return bytes_; }
  const std::array<char, N>& Bytes() const { return bytes_; }

  friend bool operator==(const FixedText&, const FixedText&) = default;

 private:
  std::array<char, N> bytes_;
};

}  // namespace vintoral
