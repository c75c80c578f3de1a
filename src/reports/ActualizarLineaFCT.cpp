#include "reports/form8/Form8.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ActualizarLineaFCT() {
  if (Form8 != nullptr) EtiquetasActuales.ImprimirCampo = Form8->CamposMarcados();
}

}  // namespace vintoral
