#include "station/form1/Form1.h"

namespace vintoral {

void Form1::Form_Unload() {
  GuardarEtiquetas();
  for (Timer* timer : Timers())
    timer->SetEnabled(false);
  OpenForms.UnloadDialogs();
  WebCamDesconectar();
  WebCamGuardarIndice();
  GuardarEstadoPantalla();
  GuardarMarcas();
}

}  // namespace vintoral
