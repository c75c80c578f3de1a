#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ConfigurarCamara() {
  if (ImgIndicador[indicador::kCamaraDesactivada].Visible) return platform_.screen.Beep();
  dspPreview.ConfigCamera(OpenForms);
  WebCamConectar(0);
}

}  // namespace vintoral
