#include "records/RegistroFuncion.h"

#include "records/RegistroMixto.h"

namespace vintoral {

static_assert(RegistroFuncion::kSize == RegistroMixto::kSize);

RegistroFuncion RegistroFuncion::Decode(std::span<const char, kSize> bytes) {
  const RegistroMixto mixed = RegistroMixto::Decode(bytes);
  return {.FechaHora = TextOf(mixed.CampoA),
          .Tiempo = TextOf(mixed.CampoB),
          .CodigoFuncion = mixed.Importe,
          .HoraFin = mixed.Numero1,
          .MinutoFin = mixed.Numero2};
}

void RegistroFuncion::EncodeOver(std::span<char, kSize> place) const {
  const RegistroMixto mixed{.CampoA = FechaHora,
                            .CampoB = Tiempo,
                            .Marca = false,
                            .Importe = CodigoFuncion,
                            .Numero1 = HoraFin,
                            .Numero2 = MinutoFin};
  mixed.EncodeOver(place);
}

}  // namespace vintoral
