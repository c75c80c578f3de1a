#include "station/form1/Form1.h"

namespace vintoral {

void Form1::SalirDeCelda() {
  if (PctFicha.TagNumber() == 0) return;
  PctFicha.Tag = "0"_w;
  ShpCelda.Cell = -1;
  ShpCelda.Visible = false;
  EstadoCelda(false, false);
}

}  // namespace vintoral
