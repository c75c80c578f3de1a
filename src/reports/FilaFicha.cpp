#include "reports/FilaFicha.h"

#include <algorithm>
#include <array>

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

/// "dd/MM/yyyy hh:mm:00" of a stamp, of whatever it holds there. Without a text of its own: a report of years
/// has very many rows.
using Instante = std::array<char, 19>;
Instante InstanteDe(std::string_view sello) {
  Instante instant{};
  char* at = instant.data();
  for (const std::string_view part :
       {sello.substr(8, 10), std::string_view(" "), sello.substr(0, 5), std::string_view(":00")})
    at = std::copy(part.begin(), part.end(), at);
  return instant;
}

std::string_view Texto(const Instante& instante) {
  return {instante.data(), instante.size()};
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
  const Instante entry = InstanteDe(ficha.MarcaEntrada.View()), exit = InstanteDe(ficha.MarcaSalida.View());
  const std::optional<Estadia> stay = EstadiaEntre(Texto(entry), Texto(exit));
  return stay ? TrimRight(TextoEstadia(*stay)) : Desconocido();
}

String ValorDeFila(const RegistroFicha& ficha) {
  return EstaDentro(ficha) ? Desconocido() : ficha.ValorCobrado.Format();
}

String LineaDeFila(const RegistroFicha& ficha, bool busqueda) {
  return EstaDentro(ficha) ? LineaDeActiva(ficha, busqueda) : LineaDeSalida(ficha);
}

}  // namespace vintoral
