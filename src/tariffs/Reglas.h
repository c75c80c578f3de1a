// One rule line of a category, such as "1M = 100*" or "5H = 30000**": how its text is read.
//
// Nothing is refused here. Operators type these lines by hand, and a line does what its letters and digits
// make it do: no unit letter puts it in no class, no digits read as 0.
#pragma once

#include <cstdint>
#include <string_view>

namespace vintoral {

struct ReglaTarifa {
  std::int64_t clave = 0;  ///< whole minutes, hours or days, without its sign
  std::int64_t valor = 0;  ///< in hundred-millionths (kEscalaValor), without its sign
  /// The classes: a letter M, H or D anywhere on the line. A line may be in several.
  bool minutos = false, horas = false, dias = false;
  /// "*" and "**" anywhere on the line; a line with the second holds the first too.
  bool estrella = false, dosEstrellas = false;
  friend bool operator==(const ReglaTarifa&, const ReglaTarifa&) = default;
};

/// Nine characters of a value leave room for eight decimals at most, so this scale holds every value exactly.
inline constexpr std::int64_t kEscalaValor = 100'000'000;

/// Any line with an "=" is a rule, whatever else it holds.
bool EsRegla(std::string_view linea);
/// Reads a line that EsRegla; the first "=" parts key from value.
ReglaTarifa LeerRegla(std::string_view linea);
/// The mark of the first hour: it may make one whole hour of the minutes of a stay, and is no price of that
/// hour itself.
bool MarcaPrimeraHora(const ReglaTarifa& regla);
/// Whether the text right of the "=" is "0**" and nothing else: the mark that charges a begun hour whole.
bool ValorEsCeroDosEstrellas(std::string_view linea);
/// Whether the line holds the unit letter of the hours.
bool TieneHoras(std::string_view linea);

}  // namespace vintoral
