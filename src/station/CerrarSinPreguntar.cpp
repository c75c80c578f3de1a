#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CerrarSinPreguntar() {
  if (Terminado()) return;
  TotalFichas = 0;
  if (iniciado_) Form_Unload();
  Terminar();
}

}  // namespace vintoral
