// Points of a user that more than one gate adds to.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

#include "station/form1/Form1.h"

namespace vintoral {

/// As a record holds them.
inline std::int32_t PuntosDelRegistro(std::int64_t puntos) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(puntos, Limits::min(), Limits::max()));
}

/// What other gates have added between two looks at a user's points. Points that were cleared are gone all
/// the same.
inline std::int64_t GanadosEnOtraPorteria(const Form1& form, std::int64_t antes, std::int64_t ahora) {
  const bool borrados = form.ImgPuntos.TagNumber() != 0;
  return borrados ? 0 : ahora - antes;
}

}  // namespace vintoral
