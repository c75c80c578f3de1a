// Local date and time as the operator's clock shows it, and the stamps of the registers.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

#include "common/String.h"

namespace vintoral {

/// The parts of a moment, in the proleptic Gregorian calendar.
struct Civil {
  int year = 1, month = 1, day = 1;  ///< 1 to 9999, 1 to 12, 1 to 31
  int hour = 0, minute = 0, second = 0, millisecond = 0;
  friend bool operator==(const Civil&, const Civil&) = default;
};

/// A local date and time, to the millisecond. No zone: registers hold what the wall clock said.
class Moment {
 public:
  constexpr Moment() = default;
  static constexpr Moment FromMilliseconds(std::int64_t sinceYearOne) { return Moment(sinceYearOne); }
  /// Empty when a part is out of its range, the 29th of February included.
  static std::optional<Moment> From(const Civil& civil);

  Civil Parts() const;
  /// Milliseconds since 01/01/0001 00:00.
  constexpr std::int64_t Milliseconds() const { return milliseconds_; }
  /// With seconds and milliseconds at 0.
  Moment WholeMinute() const;
  Moment Plus(std::int64_t milliseconds) const { return Moment(milliseconds_ + milliseconds); }

  friend constexpr auto operator<=>(Moment, Moment) = default;

 private:
  constexpr explicit Moment(std::int64_t milliseconds) : milliseconds_(milliseconds) {}
  std::int64_t milliseconds_ = 0;
};

/// "hh:mm".
String TimeText(Moment moment);
/// "dd/MM/yyyy".
String DateText(Moment moment);
/// "hh:mm", two blanks, "(", "dd/MM/yyyy", ")": 19 characters.
String StampOf(Moment moment);
/// The time of a stamp, its characters 1 to 5.
String StampTime(std::string_view stamp);
/// The date of a stamp, its characters 9 to 18.
String StampDate(std::string_view stamp);
/// The moment of a stamp with the seconds ":00"; empty when the stamp holds none ("??", blanks, scrambled
/// bytes).
std::optional<Moment> MomentOfStamp(std::string_view stamp);
/// Date, blank, time: "dd/MM/yyyy hh:mm:ss", day first whatever the machine's settings. One-digit parts are
/// read too.
std::optional<Moment> ParseDateTime(std::string_view text);

}  // namespace vintoral
