// The way of a ficha from its slot to the history.
#pragma once

namespace vintoral {

class Form1;

/// From the slot to the history, its code blanked and its points added, as a whole or not at all. False: the
/// ficha is inside as before, or nobody can reach it, and the link watch looks at once.
bool PasarAlHistorial(Form1& form);

}  // namespace vintoral
