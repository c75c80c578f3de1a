// What the first two buttons of the menu do: the report of the period, and the beginning and end of a shift.
#pragma once

namespace vintoral {

class Form1;

void PedirHistorial(Form1& form);
void ComenzarTurno(Form1& form);
/// With its report, unless the operator wants none.
void TerminarTurno(Form1& form);

}  // namespace vintoral
