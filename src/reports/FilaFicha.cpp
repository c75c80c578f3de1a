#include "reports/FilaFicha.h"

#include <algorithm>

#include "common/Moment.h"
#include "records/Monitores.h"
#include "reports/Tira.h"
#include "tariffs/Estadia.h"

namespace vintoral {
namespace {

const String& Desconocido() {
  static const String unknown = "??"_w;
  return unknown;
}

/// As the stay is worked out of.
String InstanteDe(std::string_view sello) {
  return StampDate(sello) + " "_w + StampTime(sello) + ":00"_w;
}

/// The category to the left, the stay to the right, at least a blank between them.
String CategoriaYTiempo(const RegistroFicha& ficha) {
  constexpr std::size_t kAncho = 16;
  const String stay = ReplaceAll(TiempoDeFila(ficha), " ", "");
  const std::size_t room = kAncho - 1 - std::min(stay.Size(), kAncho - 1);
  const String category = Left(TrimBlanks(ficha.Categoria.View()), room);
  return category + Blancos(kAncho, category.Size() + stay.Size()) + stay;
}

String LineaDeSalida(const RegistroFicha& ficha) {
  constexpr std::size_t kAnchoValor = 9;
  return StampTime(ficha.MarcaSalida.View()) + " "_w + CategoriaYTiempo(ficha) +
         AlignRight(ValorDeFila(ficha), kAnchoValor);
}

String LineaDeActiva(const RegistroFicha& ficha, bool busqueda) {
  constexpr std::size_t kAnchoCategoria = 9;
  const String time = busqueda ? "   ?? "_w : StampTime(ficha.MarcaEntrada.View()) + " "_w;
  const String category = Left(TrimBlanks(ficha.Categoria.View()), kAnchoCategoria);
  return time + category + Blancos(kAnchoCategoria, category.Size()) + " ACTIVO       ??"_w;
}

}  // namespace

String FechaDeFila(const RegistroFicha& ficha) {
  return StampDate(EstaDentro(ficha) ? ficha.MarcaEntrada.View() : ficha.MarcaSalida.View());
}

String TiempoDeFila(const RegistroFicha& ficha) {
  if (EstaDentro(ficha)) return Desconocido();
  const std::optional<Estadia> stay =
      EstadiaEntre(InstanteDe(ficha.MarcaEntrada.View()), InstanteDe(ficha.MarcaSalida.View()));
  return stay ? TrimRight(TextoEstadia(*stay)) : Desconocido();
}

String ValorDeFila(const RegistroFicha& ficha) {
  return EstaDentro(ficha) ? Desconocido() : ficha.ValorCobrado.Format();
}

String LineaDeFila(const RegistroFicha& ficha, bool busqueda) {
  return EstaDentro(ficha) ? LineaDeActiva(ficha, busqueda) : LineaDeSalida(ficha);
}

}  // namespace vintoral
