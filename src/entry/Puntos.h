// The points of a user when he leaves.
#pragma once

#include <cstdint>

#include "station/form1/Form1.h"
#include "station/form1/Puntos.h"

namespace vintoral {

/// `enDisco`: his points as they are now. Another gate may have retired a ficha of the same user since this
/// one was called up, so the screen's are not taken. Points that were cleared are gone all the same.
inline std::int32_t PuntosTrasEstaEstadia(const Form1& form, std::int32_t enDisco) {
  const bool borrados = form.ImgPuntos.TagNumber() != 0;
  return borrados ? 0 : static_cast<std::int32_t>(PuntosTras(enDisco, form.PuntosEstadia));
}

}  // namespace vintoral
