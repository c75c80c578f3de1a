#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ActivarTiquetes() {
  PctBoton[boton::kTiquetes].BorderStyle = 1;
  CmdNumeroFicha.Enabled = true;
  CmdNumeroFicha.Visible = !CmdBarCode.Visible;  // the two buttons share one place
}

}  // namespace vintoral
