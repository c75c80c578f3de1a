// Numbers read from text and written to it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/String.h"

namespace vintoral {

/// A decimal number as it stands at the start of a text, exact: `digits` × 10^-`decimals`.
struct Decimal {
  bool negative = false;
  __extension__ unsigned __int128 digits = 0;  ///< all digits, point left out; at most 30 are kept
  int decimals = 0;                            ///< how many of them stand behind the point
  std::size_t length = 0;                      ///< characters of the text up to the end of the number
};

/// Reads sign, digits and one point from the start of `text` (leading blanks are passed over) and stops at
/// the first character that can't go on; no digit at all gives 0.
Decimal LeadingDecimal(std::string_view text);

/// The whole number at the start of `text`, decimals cut off, stopping at the ends of 64 bits.
std::int64_t LeadingInteger(std::string_view text);

/// `value` with leading zeros to at least `width` digits; a sign stands before the zeros.
String Digits(std::int64_t value, int width = 1);

}  // namespace vintoral
