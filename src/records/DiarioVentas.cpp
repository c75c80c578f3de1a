#include "records/DiarioVentas.h"

#include <algorithm>
#include <string>

#include "common/Digest.h"
#include "records/Coding.h"
#include "records/RegistroExtra.h"

namespace vintoral {
namespace {

using coding::Get;
using coding::Put;

constexpr std::string_view kMark = "VENTAS01";
/// What disks write whole or not at all.
constexpr std::size_t kSector = 512;

// Where the fields of an entry lie. The digest is that of all that stands behind it in the entry.
constexpr std::size_t kAtDigest = 8, kAtBefore = 16, kAtBootLength = 24, kAtLinesLength = 28, kAtTexts = 32;

std::size_t InSectors(std::size_t size) {
  return (size + kSector - 1) / kSector * kSector;
}

std::uint64_t DigestOf(std::string_view entry) {
  return Digest(entry.substr(kAtBefore));
}

/// The entry at the beginning of `bytes`, from its mark to its last line; empty where there is none.
std::string_view PrimeraEntera(std::string_view bytes) {
  if (bytes.size() < kAtTexts || !bytes.starts_with(kMark)) return {};
  const std::size_t boot = Get<std::uint32_t>(bytes.data() + kAtBootLength);
  const std::size_t lines = Get<std::uint32_t>(bytes.data() + kAtLinesLength);
  if (boot + lines > bytes.size() - kAtTexts) return {};
  const std::string_view entry = bytes.substr(0, kAtTexts + boot + lines);
  return Get<std::uint64_t>(entry.data() + kAtDigest) == DigestOf(entry) ? entry : std::string_view();
}

AnotacionVenta Leida(std::string_view entry) {
  const std::size_t boot = Get<std::uint32_t>(entry.data() + kAtBootLength);
  return {.antes = Get<std::uint64_t>(entry.data() + kAtBefore),
          .arranque = String(entry.substr(kAtTexts, boot)),
          .lineas = String(entry.substr(kAtTexts + boot))};
}

}  // namespace

String EnDiario(const AnotacionVenta& anotacion) {
  std::string entry(kMark);
  entry.resize(kAtTexts);
  Put(entry.data() + kAtBefore, anotacion.antes);
  Put(entry.data() + kAtBootLength, static_cast<std::uint32_t>(anotacion.arranque.Size()));
  Put(entry.data() + kAtLinesLength, static_cast<std::uint32_t>(anotacion.lineas.Size()));
  entry += std::string_view(anotacion.arranque);
  entry += std::string_view(anotacion.lineas);
  Put(entry.data() + kAtDigest, DigestOf(entry));
  entry.resize(InSectors(entry.size()));
  return String(std::move(entry));
}

DiarioVentas LeerDiario(std::string_view bytes) {
  DiarioVentas journal;
  while (journal.fin < bytes.size()) {
    const std::string_view entry = PrimeraEntera(bytes.substr(journal.fin));
    if (entry.empty()) break;
    journal.anotaciones.push_back(Leida(entry));
    journal.fin += InSectors(entry.size());
  }
  return journal;
}

String ListaAlDia(String lista, const std::vector<AnotacionVenta>& anotaciones, std::string_view arranque) {
  for (const AnotacionVenta& sale : anotaciones) {
    if (sale.arranque == arranque || sale.antes != Digest(lista)) continue;
    lista = ListaConLineas(lista, sale.lineas);
  }
  return lista;
}

}  // namespace vintoral
