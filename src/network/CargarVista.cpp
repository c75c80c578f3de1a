#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::CargarVista() {
  if (IsPressed(PctBoton[boton::kUltimosEnSalir])) {
    CargarSalidasHST();
  } else {
    CargarArchivoACT();
  }
}

}  // namespace vintoral
