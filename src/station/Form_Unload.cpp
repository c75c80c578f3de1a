#include "station/form1/Form1.h"
#include "station/form1/Funciones.h"
#include "station/form1/ListaVentas.h"

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
  AsentarListaVentas(platform_.disk).PassOver();
  RegistrarHoraTrabajo(funcion::kCerrarPrograma);
}

}  // namespace vintoral
