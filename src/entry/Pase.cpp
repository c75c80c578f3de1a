#include "entry/Pase.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

#include "common/Numbers.h"

namespace vintoral {
namespace {

constexpr std::uint8_t kModoEntradas = 0, kModoDias = 1;
static_assert(kModoEntradas == Validez::kEntradas && kModoDias == Validez::kDias);

/// Midnight of the day in an entry stamp.
std::optional<Moment> DiaDe(std::string_view marca) {
  return ParseDateTime(StampDate(marca) + " 00:00:00"_w);
}

std::int64_t DiasEntre(Moment uno, Moment otro) {
  constexpr std::int64_t kDay = 86'400'000;
  return std::abs(uno.Milliseconds() / kDay - otro.Milliseconds() / kDay);
}

Vigencia VigenciaEnDias(const RegistroPase& pase, Moment ahora) {
  const std::optional<Moment> desde = DiaDe(pase.FechaPase.View());
  if (!desde) return {};
  const std::int64_t dias = DiasEntre(*desde, ahora);
  if (dias > pase.RestantesPase) return {.vencida = true, .unidad = Validez::kDias};
  return {.vale = true, .quedan = pase.RestantesPase + 1 - dias, .unidad = Validez::kDias};
}

}  // namespace

Vigencia VigenciaDe(const RegistroPase& pase, Moment ahora) {
  if (pase.ModoPase != kModoEntradas) return VigenciaEnDias(pase, ahora);
  return {.vale = pase.RestantesPase > 0, .quedan = pase.RestantesPase};
}

std::int64_t ValidezEscrita(std::string_view texto) {
  return std::max<std::int64_t>(LeadingInteger(Trim(texto)), 0);
}

bool TocaPase(const ValidezPedida& pedida) {
  if (pedida.numero == 0) return false;
  if (pedida.unidad == Validez::kDias) return !pedida.esPase;
  return pedida.esPase || pedida.numero != 1;
}

RegistroPase PaseNuevo(std::string_view codigo, std::string_view placa, const ValidezPedida& pedida,
                       std::string_view marca) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int16_t>::max();
  RegistroPase pase;
  pase.CodigoPase = Trim(codigo);
  pase.PlacaPase = Trim(placa);
  pase.ModoPase = static_cast<std::uint8_t>(pedida.unidad);
  if (pase.ModoPase == kModoDias) pase.FechaPase = Trim(marca);
  pase.RestantesPase = static_cast<std::int16_t>(std::min(pedida.numero - 1, kMost));
  return pase;
}

RegistroPase PaseUsado(const RegistroPase& pase) {
  RegistroPase usado = pase;
  if (pase.ModoPase != kModoEntradas) return usado;
  if (pase.RestantesPase > 1) {
    --usado.RestantesPase;
  } else {
    usado.CodigoPase = "";
  }
  return usado;
}

}  // namespace vintoral
