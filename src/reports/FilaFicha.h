// One ficha in a report: what its row says.
#pragma once

#include "common/String.h"
#include "records/RegistroFicha.h"

namespace vintoral {

/// The day under which it stands: that of the exit, of one still inside that of the entry. As the stamp has
/// it, "dd/MM/yyyy" or whatever a damaged one holds.
String FechaDeFila(const RegistroFicha& ficha);
/// "02H 30M" of one gone; "??" inside, and where the stamps tell of no stay.
String TiempoDeFila(const RegistroFicha& ficha);
/// "1500.00" of one gone, "??" inside.
String ValorDeFila(const RegistroFicha& ficha);

/// Its 31 columns on paper. In a search the time of one still inside is "??".
String LineaDeFila(const RegistroFicha& ficha, bool busqueda);

}  // namespace vintoral
