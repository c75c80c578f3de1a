#include "common/Numbers.h"

#include <limits>

namespace vintoral {

Decimal LeadingDecimal(std::string_view text) {
  constexpr int kMostDigits = 30;
  Decimal result;
  std::size_t at = 0;
  while (at < text.size() && text[at] == ' ')
    ++at;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) result.negative = text[at++] == '-';
  bool point = false;
  int kept = 0;
  for (; at < text.size(); ++at) {
    const char character = text[at];
    if (character == '.' && !point) {
      point = true;
      continue;
    }
    if (character < '0' || character > '9') break;
    if (kept == kMostDigits) {
      if (point) continue;  // more decimals than money can tell apart
      break;
    }
    result.digits = result.digits * 10 + static_cast<unsigned>(character - '0');
    if (result.digits != 0) ++kept;
    if (point) ++result.decimals;
  }
  result.length = at;
  return result;
}

std::int64_t LeadingInteger(std::string_view text) {
  Decimal number = LeadingDecimal(text);
  for (; number.decimals > 0; --number.decimals)
    number.digits /= 10;
  constexpr auto kLargest = std::numeric_limits<std::int64_t>::max();
  if (number.digits > static_cast<std::uint64_t>(kLargest)) return number.negative ? -kLargest - 1 : kLargest;
  const auto value = static_cast<std::int64_t>(number.digits);
  return number.negative ? -value : value;
}

String Digits(std::int64_t value, int width) {
  std::string digits = std::to_string(value);
  const std::size_t sign = value < 0 ? 1 : 0;
  const auto wanted = static_cast<std::size_t>(width < 0 ? 0 : width);
  if (digits.size() - sign < wanted) digits.insert(sign, wanted - (digits.size() - sign), '0');
  return String(std::move(digits));
}

}  // namespace vintoral
