#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::CargarVista() {
  if (Form2 != nullptr) {
    CargarArchivoHST();
  } else if (IsPressed(PctBoton[boton::kUltimosEnSalir])) {
    CargarSalidasHST();
  } else {
    CargarArchivoACT();
  }
}

}  // namespace vintoral
