#include "common/Money.h"

#include <limits>

#include "common/Numbers.h"

namespace vintoral {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<std::int64_t>::min();

std::uint64_t Magnitude(std::int64_t raw) {
  return raw < 0 ? ~static_cast<std::uint64_t>(raw) + 1 : static_cast<std::uint64_t>(raw);
}

/// Sign, whole part, point and `decimals` digits of `fraction`.
String Assemble(bool negative, std::uint64_t whole, std::uint64_t fraction, int decimals) {
  std::string text = negative && (whole != 0 || fraction != 0) ? "-" : "";
  text += std::to_string(whole);
  if (decimals > 0) text += "." + Digits(static_cast<std::int64_t>(fraction), decimals).Bytes();
  return String(std::move(text));
}

/// A number as typed, cut after the fourth decimal.
struct TypedNumber {
  decltype(Decimal::digits) digits;  ///< ten-thousandths, without sign
  bool negative;
  unsigned dropped;  ///< the fifth decimal
  bool beyond;       ///< something other than zeros follows it

  Money AsMoney() const {
    if (digits > static_cast<std::uint64_t>(kLargest)) return Money::FromRaw(negative ? kSmallest : kLargest);
    const auto raw = static_cast<std::int64_t>(digits);
    return Money::FromRaw(negative ? -raw : raw);
  }
};

TypedNumber Typed(std::string_view text) {
  Decimal number = LeadingDecimal(ReplaceAll(text, ",", "."));
  for (; number.decimals < 4; ++number.decimals)
    number.digits *= 10;
  unsigned dropped = 0;
  bool beyond = false;
  for (; number.decimals > 4; --number.decimals) {
    beyond = beyond || dropped != 0;
    dropped = static_cast<unsigned>(number.digits % 10);
    number.digits /= 10;
  }
  return {number.digits, number.negative, dropped, beyond};
}

}  // namespace

Money operator+(Money left, Money right) {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(left.raw_, right.raw_, &sum)) sum = right.raw_ > 0 ? kLargest : kSmallest;
  return Money(sum);
}

Money operator-(Money left, Money right) {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(left.raw_, right.raw_, &difference)) {
    difference = right.raw_ < 0 ? kLargest : kSmallest;
  }
  return Money(difference);
}

Money Money::RoundedToCents() const {
  constexpr std::int64_t kCent = kScale / 100;
  const std::int64_t rest = raw_ % kCent;
  const std::int64_t cut = raw_ - rest;
  if (rest >= kCent / 2) return Money(cut) + Money(kCent);
  if (rest <= -kCent / 2) return Money(cut) - Money(kCent);
  return Money(cut);
}

String Money::Format() const {
  // Two digits of the magnitude are dropped here, so the end of the range can't run over.
  const std::uint64_t cents = (Magnitude(raw_) + 50) / 100;
  return Assemble(raw_ < 0, cents / 100, cents % 100, 2);
}

String Money::Plain() const {
  std::uint64_t fraction = Magnitude(raw_) % kScale;
  int decimals = fraction == 0 ? 0 : 4;
  while (decimals > 0 && fraction % 10 == 0) {
    fraction /= 10;
    --decimals;
  }
  return Assemble(raw_ < 0, Magnitude(raw_) / kScale, fraction, decimals);
}

String Money::Full() const {
  return Assemble(raw_ < 0, Magnitude(raw_) / kScale, Magnitude(raw_) % kScale, 4);
}

Money MoneyFromText(std::string_view text) {
  TypedNumber number = Typed(text);
  const bool half = number.dropped == 5 && !number.beyond;
  const bool up = number.dropped > 5 || (number.dropped == 5 && number.beyond);
  if (up || (half && number.digits % 2 == 1)) ++number.digits;
  return number.AsMoney();
}

Money DifferenceInCents(std::string_view text, Money value) {
  const TypedNumber number = Typed(text);
  const Money difference = number.AsMoney() - value;
  // Dropped decimals lie away from zero where the number does. They only matter where they bring the
  // difference nearer to zero: then it has not quite reached what its fourth decimal says.
  const bool more = number.dropped != 0 || number.beyond;
  const Money step = Money::FromRaw(number.negative ? -1 : 1);
  const bool nearer = number.negative ? difference > Money() : difference < Money();
  return (more && nearer ? difference + step : difference).RoundedToCents();
}

}  // namespace vintoral
