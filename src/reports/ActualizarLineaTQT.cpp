#include "reports/form3/Form3.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ActualizarLineaTQT() {
  if (Form3 != nullptr) EtiquetasActuales.ImprimirCampo = Form3->CamposMarcados();
}

}  // namespace vintoral
