// Articles and prepaid loads: lists whose lines stand each for itself.
#include <algorithm>
#include <iterator>

#include "tariffs/Reparos.h"
#include "tariffs/Revision.h"
#include "tariffs/Tablas.h"
#include "tariffs/TextoTabla.h"

namespace vintoral {
namespace {

template <class Review>
std::vector<String> ReviewEach(const std::vector<String>& lineas, Review review) {
  std::vector<String> reparos;
  reparos.reserve(lineas.size());
  std::transform(lineas.begin(), lineas.end(), std::back_inserter(reparos), review);
  return reparos;
}

String ReviewName(std::string_view name) {
  if (name.empty()) return "El artículo no tiene nombre."_w;
  if (name.size() > kAnchoArticulo) return "El nombre se corta en 15 caracteres."_w;
  return {};
}

String ReviewArticle(std::string_view linea) {
  if (TrimBlanks(linea).empty()) return {};
  const std::size_t equals = linea.find('=');
  if (equals == std::string_view::npos) return "Sin el signo = no es un artículo."_w;
  const String withoutTabs = ReplaceAll(linea.substr(0, equals), "\t", " ");
  const String reparo = ReviewName(TrimBlanks(withoutTabs));
  return reparo.Empty() ? ReparoDeNumero(linea.substr(equals + 1), " ") : reparo;
}

String ReviewLoad(std::string_view linea) {
  return TrimRight(linea).Size() > kAnchoLinea ? "La línea se corta en 100 caracteres."_w : String();
}

}  // namespace

std::vector<String> RevisarExtras(const std::vector<String>& lineas) {
  return ReviewEach(lineas, ReviewArticle);
}

std::vector<String> RevisarPrepago(const std::vector<String>& lineas) {
  return ReviewEach(lineas, ReviewLoad);
}

}  // namespace vintoral
