// What is gathered for a report of fichas before anything of it is written.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "common/Moment.h"
#include "common/String.h"

namespace vintoral {

/// What a report is called and of which moments it tells.
struct CabezaInforme {
  String titulo;                     ///< "ESTADO"
  String resumen;                    ///< "RESUMEN ESTADO": above the categories
  bool salidas;                      ///< the times on paper are exits
  std::vector<String> sellosTira;    ///< lines below the title on paper
  std::vector<String> sellosPagina;  ///< texts of rows below the table on the page
};

// `ahora`, `desde` and `hasta` are stamps, "14:05  (20/11/2026)".
CabezaInforme CabezaDeEstado(const String& ahora, bool salidas);
CabezaInforme CabezaDeBusqueda(const String& ahora, const String& desde, const String& hasta);
CabezaInforme CabezaDeTurno(const String& inicio, const String& ahora);
CabezaInforme CabezaDeDia(const String& ahora);

/// Where the photo of that number is, as it stands in a link behind "file:///"; nothing where there is none.
/// `carpeta` is one of carpeta_fotos.
using FotoInforme = std::function<std::optional<String>(std::string_view carpeta, std::int64_t numero)>;

/// Told which share of a report is done, 0 to 1, as its rows are written; false ends it.
using SigueInforme = std::function<bool(double hecho)>;
inline bool SigueSiempre(double /*hecho*/) {
  return true;
}

/// From when to when a report may reach, where that is known.
struct PeriodoInforme {
  Moment desde, hasta;
};

/// The format in which it goes to a printer.
struct FormatoTira {
  String impresora;
  float tamano = 0;      ///< as the format keeps it
  bool detalle = false;  ///< the rows too, not the summary alone
};

struct DatosInforme {
  CabezaInforme cabeza;
  String porteria;  ///< "01"
  String moneda;
  std::array<String, 5> etiquetas;
  std::vector<String> categorias;  ///< the list of the screen
  bool busqueda = false;
  std::optional<FormatoTira> tira;  ///< nothing where only the page is asked for
  FotoInforme foto;
  SigueInforme sigue = SigueSiempre;
  std::optional<PeriodoInforme> periodo = {};
};

}  // namespace vintoral
