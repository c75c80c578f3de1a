#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LineaEfectivo() {
  if (!TxtEfectivo.Visible) {
    TxtEfectivo.Visible = true;
    LblCambio.Visible = true;
    TxtEfectivo.SelStart = 0;
    TxtEfectivo.SelLength = 1;
  }
  const Money cambio = DifferenceInCents(TxtEfectivo.Text(), ValorEstadia);
  LblCambio.Caption = cambio < Money() ? String() : cambio.Plain();
  SetFocus(&TxtEfectivo);
}

}  // namespace vintoral
