#include <tuple>

#include "reports/Coincidencias.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::CargarVista() {
  if (Form2 != nullptr) {
    std::ignore = CargarCoincidencias(*this);  // without a word: nobody has asked just now
  } else if (IsPressed(PctBoton[boton::kUltimosEnSalir])) {
    CargarSalidasHST();
  } else {
    CargarArchivoACT();
  }
}

}  // namespace vintoral
