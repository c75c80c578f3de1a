// Any bytes as a line of the list of sales, as a whole list, and as its journal: a line takes any time and
// keeps the rest, and a sale stands on top of whatever there was.
#include <algorithm>

#include "records/DiarioVentas.h"
#include "records/RegistroExtra.h"
#include "sales/Venta.h"

namespace {

using vintoral::RegistroExtra;

void TakesAnyTime(std::string_view data) {
  std::array<char, RegistroExtra::kSize> bytes{};
  std::copy_n(data.begin(), std::min(data.size(), bytes.size()), bytes.begin());
  const RegistroExtra before = RegistroExtra::Decode(bytes);
  const RegistroExtra after = RegistroExtra::Decode(vintoral::ConHoraVenta(bytes, 1405));
  const bool kept = after.PrecioUnitario == before.PrecioUnitario && after.Cantidad == before.Cantidad &&
                    after.MarcaTurnoExtra == before.MarcaTurnoExtra;
  const bool begins = before.FechaVenta.Bytes().starts_with(after.FechaVenta.Bytes()) &&
                      before.Articulo.Bytes().starts_with(after.Articulo.Bytes());
  if (after.HoraVenta != 1405 || !kept || !begins) __builtin_trap();
  const auto once = before.Encode();
  if (RegistroExtra::Decode(once).Encode() != once) __builtin_trap();
}

void TakesASale(std::string_view data) {
  using namespace vintoral;
  constexpr std::size_t kList = kRenglonesVenta * RegistroExtra::kSize;
  const String list = ListaConLineas(data, LineasDeVenta({{"CAFE"_w, 2, Money::FromUnits(5000)}}, Moment()));
  const std::size_t whole = std::min(data.size(), kList - RegistroExtra::kSize) / RegistroExtra::kSize;
  const std::size_t kept = whole * RegistroExtra::kSize;
  const std::string_view moved = std::string_view(list).substr(RegistroExtra::kSize, kept);
  if (list.Size() != std::max(data.size(), kList) || moved != data.substr(0, kept)) __builtin_trap();
}

/// What is read of a journal is written the same, and stands where the next entry leaves it.
void IsAJournal(std::string_view data) {
  using namespace vintoral;
  const DiarioVentas journal = LeerDiario(data);
  std::string again;
  for (const AnotacionVenta& sale : journal.anotaciones)
    again += EnDiario(sale).Bytes();
  if (again.size() != journal.fin || LeerDiario(again).anotaciones != journal.anotaciones) __builtin_trap();
  if (ListaAlDia(String(data), journal.anotaciones, "").Size() < data.size()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  TakesAnyTime(bytes);
  TakesASale(bytes);
  IsAJournal(bytes);
  return 0;
}
