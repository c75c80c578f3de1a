// What is stamped on the photos of a ficha, and where.
#pragma once

#include "common/String.h"

namespace vintoral {

/// The upper left corner of a stamp, in twips.
struct LugarSello {
  int x, y;
};

inline constexpr LugarSello kSelloEntrada{50, 5};          ///< on the photo of the entrance
inline constexpr LugarSello kSelloSalida{80, 200};         ///< on the photo of the exit
inline constexpr LugarSello kSelloEntradaAlSalir{80, 35};  ///< above it

/// "PE01 14:25 31/12/2026", of the stamp as a register has it: time in characters 1 to 5, date in 9 to 18.
String TextoSelloEntrada(const String& porteria, const String& marca);
/// "PS01 14:25 (31/12/2026)", of a stamp of the register in the same way; `letras` is "PS" or "PE".
String TextoSelloSalida(const String& letras, const String& porteria, const String& marca);

}  // namespace vintoral
