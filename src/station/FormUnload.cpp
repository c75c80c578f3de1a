#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CerrarVentana() {
  if (Terminado() || !Form_QueryUnload() || Terminado()) return;
  Form_Unload();
  Terminar();
}

void Form1::CerrarSinPreguntar() {
  if (Terminado()) return;
  TotalFichas = 0;
  if (iniciado_) Form_Unload();
  Terminar();
}

bool Form1::Form_QueryUnload() {
  if (TotalFichas <= 0) return true;
  if (!Preguntar("Vintoral - Cerrar Aplicación"_w, "¿Desea realmente salir del programa?"_w, Answer::kNo))
    return false;
  TotalFichas = 0;
  return true;
}

void Form1::Form_Unload() {
  GuardarEtiquetas();
  for (Timer* timer : {&TmrConexion, &TmrHoraFecha, &TmrMonitor, &TmrHorario, &TmrBarCode})
    timer->SetEnabled(false);
  OpenForms.UnloadDialogs();
  GuardarEstadoPantalla();
  GuardarMarcas();
}

}  // namespace vintoral
