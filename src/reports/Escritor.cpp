#include "reports/Escritor.h"

#include "station/form1/Papel.h"

namespace vintoral {
namespace {

/// Nothing of a character that stands for itself.
constexpr std::string_view Entidad(char character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      return {};
  }
}

}  // namespace

void Escritor::Linea(std::string_view texto) {
  Escribir(texto);
  Escribir(kFinDeLinea);
}

void Escritor::EscribirVisible(std::string_view texto) {
  std::size_t plain = 0;
  for (std::size_t at = 0; at < texto.size(); ++at) {
    const std::string_view entity = Entidad(texto[at]);
    if (entity.empty()) continue;
    Escribir(texto.substr(plain, at - plain));
    Escribir(entity);
    plain = at + 1;
  }
  Escribir(texto.substr(plain));
}

void Escritor::Entregar() {
  if (hecho_ && !pieza_.empty()) hecho_ = destino_(pieza_);
  pieza_.clear();
}

Outcome Escritor::Terminar() {
  Entregar();
  return hecho_;
}

}  // namespace vintoral
