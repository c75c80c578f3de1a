#include "records/RegistroExtra.h"

#include <algorithm>
#include <string>

#include "records/RegistroMixto.h"

namespace vintoral {

static_assert(RegistroExtra::kSize == RegistroMixto::kSize);

RegistroExtra RegistroExtra::Decode(std::span<const char, kSize> bytes) {
  const RegistroMixto mixed = RegistroMixto::Decode(bytes);
  return {.FechaVenta = TextOf(mixed.CampoA),
          .Articulo = TextOf(mixed.CampoB),
          .MarcaTurnoExtra = mixed.Marca,
          .PrecioUnitario = mixed.Importe,
          .HoraVenta = mixed.Numero1,
          .Cantidad = mixed.Numero2};
}

std::array<char, RegistroExtra::kSize> RegistroExtra::Encode() const {
  const RegistroMixto mixed{.CampoA = FechaVenta,
                            .CampoB = Articulo,
                            .Marca = MarcaTurnoExtra,
                            .Importe = PrecioUnitario,
                            .Numero1 = HoraVenta,
                            .Numero2 = Cantidad};
  return mixed.Encode();
}

namespace {

/// A record with one field changed; the rest of it, what is left over included, stays byte for byte.
template <class Change>
std::array<char, RegistroExtra::kSize> Changed(std::span<const char, RegistroExtra::kSize> bytes,
                                               Change change) {
  RegistroMixto mixed = RegistroMixto::Decode(bytes);
  change(mixed);
  std::array<char, RegistroExtra::kSize> changed{};
  std::copy(bytes.begin(), bytes.end(), changed.begin());
  mixed.EncodeOver(changed);
  return changed;
}

}  // namespace

std::array<char, RegistroExtra::kSize> ConHoraVenta(std::span<const char, RegistroExtra::kSize> bytes,
                                                    std::int16_t hora) {
  return Changed(bytes, [hora](RegistroMixto& mixed) { mixed.Numero1 = hora; });
}

std::array<char, RegistroExtra::kSize> ConMarcaTurno(std::span<const char, RegistroExtra::kSize> bytes) {
  return Changed(bytes, [](RegistroMixto& mixed) { mixed.Marca = true; });
}

String ListaExtrasEnBlanco() {
  const auto blank = RegistroExtra{}.Encode();
  std::string list;
  list.reserve(kRenglonesVenta * RegistroExtra::kSize);
  for (std::int64_t line = 1; line <= kRenglonesVenta; ++line)
    list.append(blank.data(), blank.size());
  return String(std::move(list));
}

}  // namespace vintoral
