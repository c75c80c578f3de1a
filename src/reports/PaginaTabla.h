// A report as a page in the HTML of spreadsheets: one table, which a browser shows and a spreadsheet opens.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/Escritor.h"

namespace vintoral {

/// What all columns of one kind have in common.
struct TipoColumna {
  std::string_view clase;        ///< of the column
  std::string_view claseCabeza;  ///< of its head
  std::string_view claseCelda;   ///< of its cells
  int ancho;                     ///< in pixels
  int anchoHoja;                 ///< in a spreadsheet's own measure
  int puntos;                    ///< in points
  int puntosOcultos;             ///< in points, in the row that gives a browser the widths
};

namespace tipo {
inline constexpr TipoColumna kMomento{"xl2825893", "xl2925893", "xl2825893", 215, 7862, 161, 161};
inline constexpr TipoColumna kPorteria{"xl2725893", "xl3025893", "xl2725893", 40, 1462, 30, 30};
inline constexpr TipoColumna kFicha{"xl2525893", "xl3125893", "xl2525893", 75, 2742, 56, 56};
inline constexpr TipoColumna kTexto{"xl2525893", "xl3125893", "xl2525893", 215, 7862, 161, 161};
inline constexpr TipoColumna kImagen{"xl2525893", "xl3125893", "xl2625893", 75, 2742, 66, 56};
inline constexpr TipoColumna kImporte{"xl2525893", "xl3125893", "xl2525894", 215, 7862, 161, 161};
}  // namespace tipo

struct Columna {
  String cabeza;
  const TipoColumna* tipo;
};

class PaginaTabla {
 public:
  /// Writes all that stands above the first row. `titulo` has the number of the gate at its end.
  PaginaTabla(Destino destino, std::vector<Columna> columnas, const String& titulo);

  // A row is written cell by cell; those that are left out are empty.
  void Celda(std::string_view texto);
  /// A photo: a link to the file, or that there is none.
  void CeldaFoto(const std::optional<String>& ruta);
  /// Empty cells up to column `columna`, counted from 0.
  void SaltarA(std::size_t columna);
  void TerminarFila();
  void FilaVacia() { TerminarFila(); }
  /// A row with a text in its first cell alone.
  void FilaDe(std::string_view texto);

  /// Writes what stands below the last row; the first failure where there was one.
  Outcome Terminar();

 private:
  void EscribirCabeza(const String& titulo);
  void EscribirColumnas();
  void EscribirRotulos();
  void EmpezarCelda();

  Escritor escritor_;
  std::vector<Columna> columnas_;
  std::vector<std::string> aperturas_;  ///< what stands before the text of each cell of a row
  std::size_t columna_ = 0;             ///< the next one of the row
};

}  // namespace vintoral
