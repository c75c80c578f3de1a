#include "station/form1/Form1.h"

namespace vintoral {

void Form1::DesactivarCamara() {
  sinCamaras_ = false;
  ImgIndicador[indicador::kCamaraDesactivada].Visible = true;
  WebCamDesconectar();
  Picture1.Visible = false;
  PctAppCamera.Visible = true;
}

}  // namespace vintoral
