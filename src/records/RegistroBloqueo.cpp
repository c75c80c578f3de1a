#include "records/RegistroBloqueo.h"

#include "records/RegistroMixto.h"

namespace vintoral {

static_assert(RegistroBloqueo::kSize == RegistroMixto::kSize);

RegistroBloqueo RegistroBloqueo::Decode(std::span<const char, kSize> bytes) {
  const RegistroMixto mixed = RegistroMixto::Decode(bytes);
  return {.Contraseña = TextOf(mixed.CampoA), .Funciones = TextOf(mixed.CampoB)};
}

void RegistroBloqueo::EncodeOver(std::span<char, kSize> place) const {
  const RegistroMixto mixed{.CampoA = Contraseña,
                            .CampoB = Funciones,
                            .Marca = RegistroMixto::Decode(place).Marca,
                            .Importe = {},
                            .Numero1 = RegistroExtra::kSinHora,
                            .Numero2 = 0};
  mixed.EncodeOver(place);
}

}  // namespace vintoral
