// The 46-byte record of Vintoral.FDR: how long the program ran on a day, or what was done at a moment.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "common/Money.h"
#include "common/String.h"

namespace vintoral {

/// With nothing set it marks, as a blank record does, the end of the log.
struct RegistroFuncion {
  /// Of a record to which nothing has come yet.
  static constexpr std::int16_t kSinFin = -1;

  String FechaHora;                ///< "dd/MM/yyyy", two blanks, "hh:mm"
  String Tiempo;                   ///< "hh:mm": how long the program ran on that day
  Money CodigoFuncion;             ///< the station's number and the code behind it, read as one number
  std::int16_t HoraFin = kSinFin;  ///< of a day, the hour of its beginning and Tiempo together
  std::int16_t MinutoFin = kSinFin;

  /// The date and the time within FechaHora, from 1.
  static constexpr std::size_t kLargoFecha = 10, kTrasFecha = 11, kHora = 13;

  static constexpr std::size_t kSize = 46;
  /// Any bytes are legal, as those of RegistroMixto.
  static RegistroFuncion Decode(std::span<const char, kSize> bytes);
  /// What the fields don't take stays as it is.
  void EncodeOver(std::span<char, kSize> place) const;

  friend bool operator==(const RegistroFuncion&, const RegistroFuncion&) = default;
};

}  // namespace vintoral
