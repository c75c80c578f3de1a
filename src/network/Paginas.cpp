#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// Back to the number; a ficha that is under way keeps the place where it is typed.
void FocoAlNumero(Form1& form) {
  if (!form.TxtCampo[0].Locked) form.SetFocus(&form.TxtCampo[0]);
}

}  // namespace

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
