#include "tariffs/TextoTabla.h"

#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kWidthOfPrice = 9;

}  // namespace

String TextoDeTabla(const std::vector<String>& tabla) {
  String texto;
  for (std::size_t i = 0; i < tabla.size(); ++i) {
    if (i > 0) texto += String(kLineEnd);
    texto += TrimRight(tabla[i]);
  }
  return texto;
}

std::vector<String> LineasDeTexto(std::string_view texto) {
  if (TrimBlanks(ReplaceAll(texto, kLineEnd, " ")).empty()) return {};
  texto = TrimBlanks(texto);
  std::vector<String> lineas;
  for (std::size_t end = texto.find(kLineEnd); end != std::string_view::npos; end = texto.find(kLineEnd)) {
    lineas.emplace_back(texto.substr(0, end));
    texto.remove_prefix(end + kLineEnd.size());
  }
  lineas.emplace_back(texto);
  return lineas;
}

String NombreDeArticulo(std::string_view texto) {
  const String withoutTabs = ReplaceAll(texto, "\t", " ");
  return Trim(TrimBlanks(withoutTabs).substr(0, kAnchoArticulo));
}

std::string_view PrecioDeArticulo(std::string_view texto) {
  return TrimBlanks(texto).substr(0, kWidthOfPrice);
}

String LineaExtraEditada(std::string_view linea) {
  const std::string_view piece = TrimBlanks(linea);
  const std::size_t equals = piece.find('=');
  if (equals == std::string_view::npos) return Upper(piece.substr(0, kAnchoLinea));
  return Upper(NombreDeArticulo(piece.substr(0, equals))) + " = "_w +
         Upper(PrecioDeArticulo(piece.substr(equals + 1)));
}

String LineaPrepagoEditada(std::string_view linea) {
  return Left(linea, kAnchoLinea);
}

}  // namespace vintoral
