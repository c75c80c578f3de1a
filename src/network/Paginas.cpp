#include "station/form1/Foco.h"

namespace vintoral {
void Form1::RetrocederPagina() {
  if (InicioPagina > kCeldas) {
    InicioPagina -= kCeldas;
    ImprimirIndice();
  }
  FocoAlNumero(*this);
}

void Form1::AvanzarPagina() {
  if (InicioPagina + kCeldas <= TotalVista()) {
    InicioPagina += kCeldas;
    ImprimirIndice();
  }
  FocoAlNumero(*this);
}

}  // namespace vintoral
