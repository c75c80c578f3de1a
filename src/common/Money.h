// Money: a signed 64-bit count of ten-thousandths, in memory as in the registers. No binary floating point.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

#include "common/String.h"

namespace vintoral {

class Money {
 public:
  constexpr Money() = default;
  /// `raw` in ten-thousandths: 15000.00 is 150000000.
  static constexpr Money FromRaw(std::int64_t raw) { return Money(raw); }
  static constexpr Money FromUnits(std::int64_t units) { return Money(units * kScale); }

  constexpr std::int64_t Raw() const { return raw_; }
  /// Whole units, cut toward zero.
  constexpr std::int64_t Units() const { return raw_ / kScale; }

  /// Sum and difference stop at the ends of the range instead of running over.
  friend Money operator+(Money left, Money right);
  friend Money operator-(Money left, Money right);
  friend constexpr auto operator<=>(Money, Money) = default;

  /// The nearest value with two decimals, halves away from zero: what the screen's "#0.00" shows.
  Money RoundedToCents() const;
  /// "#0.00": at least one digit before the point, two after it, halves away from zero.
  String Format() const;
  /// The shortest text that holds the value: "2.5", "0", "-12". No blanks.
  String Plain() const;
  /// All four decimals: "15000.0000".
  String Full() const;

  static constexpr std::int64_t kScale = 10000;

 private:
  constexpr explicit Money(std::int64_t raw) : raw_(raw) {}
  std::int64_t raw_ = 0;
};

/// Reads what an operator typed: a comma is a point, the number at the start counts, 0 if there is none.
/// Decimals past the fourth round to the nearest, halves to the even ten-thousandth; out of range stops at
/// the end.
Money MoneyFromText(std::string_view text);

/// What the operator typed, read as above with all its decimals, less `value`, to the cent: rounded once,
/// halves away from zero.
Money DifferenceInCents(std::string_view text, Money value);

}  // namespace vintoral
