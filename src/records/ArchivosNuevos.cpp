#include "records/ArchivosNuevos.h"

#include <string>

#include "records/RegistroCodigo.h"
#include "records/RegistroFicha.h"

namespace vintoral {
namespace {

constexpr std::int32_t kSlots = 1000;

template <class R>
void Append(std::string& bytes, const R& record) {
  const auto encoded = record.Encode();
  bytes.append(encoded.data(), encoded.size());
}

}  // namespace

String ActNuevo() {
  std::string bytes;
  bytes.reserve((kSlots + 1) * RegistroFicha::kSize);
  RegistroFicha record;
  for (record.Posicion = 1; record.Posicion <= kSlots; ++record.Posicion)
    Append(bytes, record);
  // The closing record carries the number of the last slot, not its own.
  record.Posicion = kSlots;
  record.MarcaEntrada = "1000";
  record.PorteriaEntrada = "5";
  Append(bytes, record);
  return String(std::move(bytes));
}

String HstNuevo() {
  std::string bytes;
  Append(bytes, RegistroFicha{});
  return String(std::move(bytes));
}

String CdbNuevo() {
  std::string bytes;
  bytes.reserve(kSlots * RegistroCodigo::kSize);
  for (std::int32_t slot = 1; slot <= kSlots; ++slot)
    Append(bytes, RegistroCodigo{});
  return String(std::move(bytes));
}

String NsrNuevo() {
  return HstNuevo();
}

}  // namespace vintoral
