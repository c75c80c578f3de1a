#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MostrarImagenEnVivo() {
  const bool sinCamara = ImgIndicador[indicador::kCamaraDesactivada].Visible;
  Picture2.Picture = {};
  Picture2.Visible = false;
  Picture1.Visible = !sinCamara;
  PctAppCamera.Visible = sinCamara;
  LblWebCamMsg.Visible = false;
  LblWebCamMsg.Caption = {};
}

}  // namespace vintoral
