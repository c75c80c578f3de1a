#include "camera/IndiceCamara.h"
#include "station/form1/Form1.h"
#include "station/forms/Keys.h"

namespace vintoral {

void Form1::WebCamCargar() {
  if (!dspPreview.LoadCamera(CboDriver)) return;
  const auto rows = static_cast<std::int32_t>(CboDriver.List().size());
  const std::int32_t guardado = LeerIndiceCamara(platform_.disk).value_or(0);
  if (rows > 0) CboDriver.Select(guardado >= 0 && guardado < rows ? guardado : 0);
  if (!CboDriver.Text().Empty()) return;
  Form_KeyDown('W', keys::kControl | keys::kAlt);
  sinCamaras_ = true;
}

void Form1::BuscarCamara() {
  const bool apagada = ImgIndicador[indicador::kCamaraDesactivada].Visible;
  // A machine that was slow to start tells of its devices only now.
  if (!apagada && !dspPreview.Listed()) return WebCamConectar(0);
  const bool ocupada = FichaEnCurso() || PctFicha.TagNumber() != 0;
  if (!sinCamaras_ || ocupada || !dspPreview.LoadCamera(CboDriver) || CboDriver.List().empty()) return;
  sinCamaras_ = false;
  ImgIndicador[indicador::kCamaraDesactivada].Visible = false;
  WebCamCargar();
  WebCamConectar(0);
  MostrarImagenEnVivo();
}

}  // namespace vintoral
