#include "records/Monitores.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "records/LayoutFicha.h"

namespace vintoral {
namespace {

constexpr std::string_view kNoExit = "??";
constexpr std::size_t kExitGateOffset = coding::OffsetOf(kLayoutFicha, &RegistroFicha::PorteriaSalida);
constexpr std::int64_t kSecond = 1000;
constexpr std::int64_t kMinute = 60 * kSecond;
constexpr std::int64_t kDay = kMinute * 60 * 24;

std::int64_t DayOf(Moment moment) {
  return moment.Milliseconds() / kDay;
}

/// To the second: a clock on the wall shows no more.
std::int64_t TimeOfDay(Moment moment) {
  return moment.Milliseconds() % kDay / kSecond * kSecond;
}

/// The stamp's time of day; empty when its day is not that of `now`.
std::optional<std::int64_t> TimeToday(std::string_view stamp, Moment now) {
  const std::optional<Moment> moment = MomentOfStamp(stamp);
  if (!moment || DayOf(*moment) != DayOf(now)) return std::nullopt;
  return TimeOfDay(*moment);
}

bool ElapsedToday(std::string_view stamp, Moment now, int minutes) {
  const std::optional<std::int64_t> time = TimeToday(stamp, now);
  return time && TimeOfDay(now) - *time >= minutes * kMinute;
}

}  // namespace

bool EstaDentro(const RegistroFicha& ficha) {
  return TrimBlanks(ficha.PorteriaSalida.View()) == kNoExit;
}

bool EstaDentro(std::span<const char, RegistroFicha::kSize> bytes) {
  return std::string_view(bytes.data() + kExitGateOffset, kNoExit.size()) == kNoExit;
}

bool EntroHace(const RegistroFicha& ficha, Moment ahora, int minutos) {
  const std::optional<std::int64_t> time = TimeToday(ficha.MarcaEntrada.View(), ahora);
  if (!time) return false;
  const std::int64_t earliest = (TimeOfDay(ahora) - minutos * kMinute) % kDay;
  return (earliest < 0 ? earliest + kDay : earliest) <= *time;
}

bool PermaneceDesde(const RegistroFicha& ficha, Moment ahora, int minutos) {
  return ElapsedToday(ficha.MarcaEntrada.View(), ahora, minutos);
}

bool SalioHace(const RegistroFicha& ficha, Moment ahora, int minutos) {
  return ElapsedToday(ficha.MarcaSalida.View(), ahora, minutos);
}

bool SalioHoy(const RegistroFicha& ficha, Moment ahora) {
  return StampDate(ficha.MarcaSalida.View()) == DateText(ahora);
}

}  // namespace vintoral
