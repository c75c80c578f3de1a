// The 46-byte record of Vintoral.EXT: an article that was sold. Behind the list stands the lock of functions.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

/// With nothing set it is a blank one, which fills its 46 bytes. A date of eight characters leaves the last
/// byte over, and all that stands behind it a byte further ahead.
struct RegistroExtra {
  static constexpr std::size_t kAnchoFecha = 9;
  static constexpr std::size_t kAnchoArticulo = 15;
  /// Of a blank record, and of the one at which the reports stop.
  static constexpr std::int16_t kSinHora = -1;

  String FechaVenta{kAnchoFecha, ' '};   ///< "dd/MM/yy"
  String Articulo{kAnchoArticulo, ' '};  ///< the name, filled with blanks
  bool MarcaTurnoExtra = false;          ///< it was the newest when a shift began
  Money PrecioUnitario;
  std::int16_t HoraVenta = kSinHora;  ///< hhmm as a number: 14:05 is 1405
  std::int16_t Cantidad = 0;

  static constexpr std::size_t kSize = 46;
  /// Any bytes are legal, as those of RegistroMixto.
  static RegistroExtra Decode(std::span<const char, kSize> bytes);
  /// Texts too long for the record are cut as those of RegistroMixto.
  std::array<char, kSize> Encode() const;

  friend bool operator==(const RegistroExtra&, const RegistroExtra&) = default;
};

/// A record with another time, or marked as the newest when a shift begins; the rest of it, what is left over
/// included, stays byte for byte.
std::array<char, RegistroExtra::kSize> ConHoraVenta(std::span<const char, RegistroExtra::kSize> bytes,
                                                    std::int16_t hora);
std::array<char, RegistroExtra::kSize> ConMarcaTurno(std::span<const char, RegistroExtra::kSize> bytes);

/// The list of sales: records 1 to 5000, the newest first.
inline constexpr std::int64_t kRenglonesVenta = 5000;
/// A list of blank records, 230,000 bytes: what a new file begins with.
String ListaExtrasEnBlanco();
/// The bytes of the file with `lineas`, whole records, on top of the list, which has as many places further
/// down, the oldest gone. What stands behind the list stays, byte for byte. A list that was cut is whole
/// again; a line of which more than the byte left over is missing was none.
String ListaConLineas(std::string_view lista, std::string_view lineas);

}  // namespace vintoral
