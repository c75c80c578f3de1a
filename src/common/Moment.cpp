#include "common/Moment.h"

#include <array>
#include <chrono>

#include "common/Numbers.h"

namespace vintoral {
namespace {

using Days = std::chrono::sys_days;
constexpr std::int64_t kDay = 86'400'000;
constexpr Days kFirstDay = std::chrono::year{1} / 1 / 1;

/// Reads `least` to `most` digits at `at` and moves past them; empty when there are too few.
std::optional<int> TakeNumber(std::string_view text, std::size_t& at, std::size_t least, std::size_t most) {
  int value = 0;
  std::size_t count = 0;
  while (count < most && at < text.size() && text[at] >= '0' && text[at] <= '9') {
    value = value * 10 + (text[at++] - '0');
    ++count;
  }
  if (count < least) return std::nullopt;
  return value;
}

bool TakeCharacter(std::string_view text, std::size_t& at, char wanted) {
  if (at >= text.size() || text[at] != wanted) return false;
  ++at;
  return true;
}

}  // namespace

std::optional<Moment> Moment::From(const Civil& civil) {
  const auto date = std::chrono::year{civil.year} / civil.month / civil.day;
  const bool inDay = civil.hour >= 0 && civil.hour < 24 && civil.minute >= 0 && civil.minute < 60 &&
                     civil.second >= 0 && civil.second < 60 && civil.millisecond >= 0 &&
                     civil.millisecond < 1000;
  if (civil.year < 1 || civil.year > 9999 || !date.ok() || !inDay) return std::nullopt;
  const std::int64_t days = (Days{date} - kFirstDay).count();
  const std::int64_t seconds = (civil.hour * 60 + civil.minute) * 60 + civil.second;
  return Moment(days * kDay + seconds * 1000 + civil.millisecond);
}

Civil Moment::Parts() const {
  std::int64_t days = milliseconds_ / kDay;
  std::int64_t rest = milliseconds_ % kDay;
  if (rest < 0) {
    rest += kDay;
    --days;
  }
  const std::chrono::year_month_day date{kFirstDay + std::chrono::days{days}};
  Civil civil;
  civil.year = static_cast<int>(date.year());
  civil.month = static_cast<int>(static_cast<unsigned>(date.month()));
  civil.day = static_cast<int>(static_cast<unsigned>(date.day()));
  civil.hour = static_cast<int>(rest / 3'600'000);
  civil.minute = static_cast<int>(rest / 60'000 % 60);
  civil.second = static_cast<int>(rest / 1000 % 60);
  civil.millisecond = static_cast<int>(rest % 1000);
  return civil;
}

Moment Moment::WholeMinute() const {
  const std::int64_t rest = (milliseconds_ % 60'000 + 60'000) % 60'000;
  return Moment(milliseconds_ - rest);
}

String TimeText(Moment moment) {
  const Civil civil = moment.Parts();
  return Digits(civil.hour, 2) + ":"_w + Digits(civil.minute, 2);
}

String DateText(Moment moment) {
  const Civil civil = moment.Parts();
  return Digits(civil.day, 2) + "/"_w + Digits(civil.month, 2) + "/"_w + Digits(civil.year, 4);
}

String StampOf(Moment moment) {
  return TimeText(moment) + "  ("_w + DateText(moment) + ")"_w;
}

String StampTime(std::string_view stamp) {
  return Left(stamp, 5);
}

String StampDate(std::string_view stamp) {
  return Mid(stamp, 9, 10);
}

std::optional<Moment> MomentOfStamp(std::string_view stamp) {
  return ParseDateTime(StampDate(stamp) + " "_w + StampTime(stamp) + ":00"_w);
}

std::optional<Moment> ParseDateTime(std::string_view text) {
  text = TrimBlanks(text);
  std::size_t at = 0;
  std::array<int, 6> parts{};
  constexpr std::array<char, 6> kAfter = {'/', '/', ' ', ':', ':', '\0'};
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool year = i == 2;
    const std::optional<int> number = TakeNumber(text, at, year ? 4 : 1, year ? 4 : 2);
    if (!number) return std::nullopt;
    parts[i] = *number;
    if (kAfter[i] != '\0' && !TakeCharacter(text, at, kAfter[i])) return std::nullopt;
  }
  if (at != text.size()) return std::nullopt;
  return Moment::From({.year = parts[2],
                       .month = parts[1],
                       .day = parts[0],
                       .hour = parts[3],
                       .minute = parts[4],
                       .second = parts[5]});
}

}  // namespace vintoral
