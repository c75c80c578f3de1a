#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CerrarVentana() {
  if (Terminado() || !Form_QueryUnload()) return;
  Form_Unload();
  Terminar();
}

}  // namespace vintoral
