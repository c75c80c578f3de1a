// Which fichas the three monitors list. All of them look at today alone and compare times of day, so no
// window reaches back over midnight. A stamp that holds no moment is in none.
#pragma once

#include <span>

#include "common/Moment.h"
#include "records/RegistroFicha.h"

namespace vintoral {

/// The ficha stands in ACT with no exit yet: its exit gate is "??".
bool EstaDentro(const RegistroFicha& ficha);
/// The same of a record as it stands on disk: the view looks at a thousand slots for the few that it shows.
bool EstaDentro(std::span<const char, RegistroFicha::kSize> bytes);

/// "ULTIMOS EN INGRESAR": came in today, and not before the time of day that was `minutos` ago. Shortly after
/// midnight that is a late hour, which no entry of today has reached.
bool EntroHace(const RegistroFicha& ficha, Moment ahora, int minutos);
/// "TIEMPO DE PERMANENCIA": came in today, at least `minutos` ago.
bool PermaneceDesde(const RegistroFicha& ficha, Moment ahora, int minutos);
/// "ULTIMOS EN SALIR": left today, at least `minutos` ago.
bool SalioHace(const RegistroFicha& ficha, Moment ahora, int minutos);
/// Left on the day of `ahora`: the walk over HST, latest first, goes on while this holds. The date alone
/// counts, so a damaged time doesn't end the walk.
bool SalioHoy(const RegistroFicha& ficha, Moment ahora);

}  // namespace vintoral
