#include "station/form1/Form1.h"

namespace vintoral {

void Form1::RefrescarVista() {
  CargarVista();
  ImprimirIndice();
}

}  // namespace vintoral
