// What the read-only rows of the screen tell of a ficha, on display or under the pointer.
#pragma once

#include "records/RegistroFicha.h"

namespace vintoral {

class Form1;

/// The six fields, the entry and the category into their rows, in yellow.
void EscribirFilas(Form1& form, const RegistroFicha& ficha);
/// The rows, both stamps and the category as they are while nobody is shown; while the folder is away the
/// entry says so.
void BlanquearFilas(Form1& form);
/// The stay of a ficha that is inside, up to now, for the fare. Both its ends are whole minutes.
void CalcularEstadia(Form1& form, const RegistroFicha& ficha);

}  // namespace vintoral
