#include "reports/DatosInforme.h"

#include "reports/Renglones.h"

namespace vintoral {

CabezaInforme CabezaDeEstado(const String& ahora, bool salidas) {
  return {.titulo = "ESTADO"_w,
          .resumen = "RESUMEN ESTADO"_w,
          .salidas = salidas,
          .sellosTira = {LineaHoraFecha(ahora)},
          .sellosPagina = {ahora}};
}

CabezaInforme CabezaDeBusqueda(const String& ahora, const String& desde, const String& hasta) {
  return {.titulo = "BÚSQUEDA"_w,
          .resumen = "RESUMEN BÚSQUEDA"_w,
          .salidas = true,
          .sellosTira = {LineaHoraFecha(ahora), LineaInicio(desde), LineaFinal(hasta)},
          .sellosPagina = {ahora, desde, hasta}};
}

CabezaInforme CabezaDeTurno(const String& inicio, const String& ahora) {
  return {.titulo = "TURNO DE TRABAJO"_w,
          .resumen = "RESUMEN TURNO.TRA"_w,
          .salidas = true,
          .sellosTira = {LineaInicio(inicio), LineaFinal(ahora)},
          .sellosPagina = {inicio, ahora}};
}

CabezaInforme CabezaDeDia(const String& ahora) {
  return {.titulo = "HISTORIAL DÍA"_w,
          .resumen = "RESUMEN HISTO.DÍA"_w,
          .salidas = true,
          .sellosTira = {LineaHoraFecha(ahora)},
          .sellosPagina = {}};
}

}  // namespace vintoral
