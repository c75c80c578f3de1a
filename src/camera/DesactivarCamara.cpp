#include "station/form1/Form1.h"

namespace vintoral {

void Form1::DesactivarCamara() {
  sinCamaras_ = false;
  ImgIndicador[indicador::kCamaraDesactivada].Visible = true;
  FotoContinua = 0;
  for (PictureBox& button : PctFotoDetalle)
    button.Visible = false;
  WebCamDesconectar();
  Picture1.Visible = false;
  PctAppCamera.Visible = true;
}

}  // namespace vintoral
