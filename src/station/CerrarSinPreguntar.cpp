#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CerrarSinPreguntar() {
  if (terminado_) return;
  TotalFichas = 0;
  if (iniciado_) Form_Unload();
  Terminar();
}

}  // namespace vintoral
