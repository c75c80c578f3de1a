#include <memory>

#include "camera/formcamara/FormCamara.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ConfigurarCamara() {
  if (ImgIndicador[indicador::kCamaraDesactivada].Visible) return platform_.screen.Beep();
  if (!dspPreview.Options().Empty()) OpenForms.ShowModal(OpenForms.Load(std::make_unique<FormCamara>(*this)));
  if (!Terminado()) WebCamConectar(0);
}

}  // namespace vintoral
