// What a report of fichas takes from the screen, from the formats and from the disk.
#pragma once

#include <array>

#include "reports/DatosInforme.h"

namespace vintoral {

class Form1;

/// The labels of the five data fields.
std::array<String, 5> EtiquetasDeDatos(const Form1& form);
/// Looks in the folders of the data folder; a link has the whole path.
FotoInforme FotoEnDisco(const Form1& form);
/// What a report is called while it is written and the operator waits for it.
String EscribiendoInforme();
/// All but the head. `busqueda`: the rows are those of a search. On a slip only where `formatoTiquete` says
/// so: in the format of invoices while those are on, else in that of tickets.
DatosInforme ReunirInforme(const Form1& form, CabezaInforme cabeza, bool formatoTiquete, bool detalle);

}  // namespace vintoral
