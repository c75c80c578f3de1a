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

namespace {

/// The lines of a list as whole records.
std::string_view Enteros(std::string_view list) {
  return list.substr(0, list.size() / RegistroExtra::kSize * RegistroExtra::kSize);
}

}  // namespace

String ListaConLineas(std::string_view lista, std::string_view lineas) {
  constexpr std::size_t kLength = kRenglonesVenta * RegistroExtra::kSize;
  std::string list;
  list.reserve(std::max(kLength, lista.size()) + RegistroExtra::kSize);
  list += lineas.substr(0, kLength);  // the lock of functions stands behind the list
  const std::string_view before = lista.substr(0, kLength);
  list += Enteros(before).substr(0, kLength - list.size());
  if (std::string_view piece = before.substr(Enteros(before).size());
      piece.size() == RegistroExtra::kSize - 1 && list.size() < kLength)
    list.append(piece).push_back('\0');
  const auto blank = RegistroExtra{}.Encode();
  while (list.size() < kLength)
    list.append(blank.data(), blank.size());
  list += lista.substr(before.size());
  return String(std::move(list));
}

}  // namespace vintoral
