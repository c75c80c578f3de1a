#include "records/Piezas.h"

namespace vintoral {
namespace {

/// Piece `index` (from 0) of a value.
String Pieza(std::string_view value, std::size_t index) {
  return Mid(value, index * RegistroMixto::kPieza + 1, RegistroMixto::kPieza);
}

}  // namespace

std::array<String, kValoresEnPiezas> UnirPiezas(const RegistrosDePiezas& registros) {
  std::array<String, kValoresEnPiezas> values;
  for (std::size_t i = 0; i < registros.size(); ++i)
    values[i / kRegistrosPorValor] += TextOf(registros[i].CampoA) + TextOf(registros[i].CampoB);
  return values;
}

RegistrosDePiezas CortarPiezas(const std::array<String, kValoresEnPiezas>& valores) {
  RegistrosDePiezas records;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const String& value = valores[i / kRegistrosPorValor];
    const std::size_t first = i % kRegistrosPorValor * 2;
    records[i].CampoA = Pieza(value, first);
    records[i].CampoB = Pieza(value, first + 1);
  }
  return records;
}

}  // namespace vintoral
