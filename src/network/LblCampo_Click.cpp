#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LblCampo_Click() {
  if (FichaEnCurso() || !HayPuesto(NumeroEscrito())) return;
  MostrarFicha();
  SetFocus(&TxtCampo[0]);
}

}  // namespace vintoral
