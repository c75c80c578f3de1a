#include "tariffs/Tablas.h"

namespace vintoral {

String CodificarLineas(const std::vector<String>& lineas) {
  std::string bytes;
  bytes.reserve(lineas.size() * kAnchoLinea);
  for (const String& linea : lineas) {
    const std::size_t end = bytes.size() + kAnchoLinea;
    bytes.append(linea.Bytes(), 0, kAnchoLinea).resize(end, ' ');
  }
  return String(std::move(bytes));
}

std::vector<String> DecodificarLineas(std::string_view bytes) {
  std::vector<String> lineas;
  lineas.reserve(bytes.size() / kAnchoLinea);
  for (; bytes.size() >= kAnchoLinea; bytes.remove_prefix(kAnchoLinea))
    lineas.emplace_back(bytes.substr(0, kAnchoLinea));
  return lineas;
}

String LineaTarifa(std::string_view linea) {
  return Upper(TrimBlanks(linea).substr(0, kAnchoTarifa));
}

String LineaExtra(std::string_view linea) {
  return Upper(TrimBlanks(linea));
}

bool EsCategoria(std::string_view linea) {
  return !TrimBlanks(linea).empty() && linea.find('=') == std::string_view::npos;
}

}  // namespace vintoral
