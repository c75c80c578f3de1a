#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"

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
  RegistrarHoraTrabajo(funcion::kCerrarPrograma);
}

}  // namespace vintoral
