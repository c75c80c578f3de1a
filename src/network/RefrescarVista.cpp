#include "station/form1/Form1.h"

namespace vintoral {

void Form1::RefrescarVista() {
  CargarArchivoACT();
  ImprimirIndice();
}

}  // namespace vintoral
