#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LimpiarPantalla() {
  for (Image& cell : ImgFicha) {
    cell.Picture = {};
    cell.Caption = {};
    cell.Visible = false;
  }
  PctFicha.Picture = {};
  ShpCelda.Visible = false;
}

}  // namespace vintoral
