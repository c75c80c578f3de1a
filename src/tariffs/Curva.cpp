#include "tariffs/Curva.h"

#include "tariffs/Categoria.h"
#include "tariffs/Valor.h"

namespace vintoral {
namespace {

Estadia StayOf(std::size_t minutes) {
  const auto whole = static_cast<std::int32_t>(minutes);
  return {.dias = whole / 1440, .horas = whole / 60 % 24, .minutos = whole % 60};
}

}  // namespace

std::vector<Money> CurvaDeTarifa(const std::vector<String>& lineas, std::string_view categoria) {
  const std::vector<String> tabla = TablaEditada(lineas);
  const std::size_t head = LineaDeCategoria(tabla, categoria);
  if (head == tabla.size()) return {};
  // Its own lines alone: the length of the rest of the table costs nothing.
  const std::vector<String> own = LineasDeCategoria(tabla, head);
  std::vector<Money> curve;
  curve.reserve(kPuntosCurva);
  bool priced = false;
  for (std::size_t minutes = 0; minutes < kPuntosCurva; ++minutes) {
    const Valor valor = CalcularValorDe(own, own.front(), StayOf(minutes));
    priced = priced || valor.conPrecio;
    curve.push_back(valor.valor);
  }
  return priced ? curve : std::vector<Money>{};
}

}  // namespace vintoral
