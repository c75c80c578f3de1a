#include "station/Monitor.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::TmrMonitor_Timer() {
  // The main gate redraws with its own saves and retirings; by timer only while it starts.
  if (!HayMonitor(*this) && EsCliente == 0 && TmrHorario.Enabled) return;
  if (IsPressed(PctBoton[boton::kUltimosEnSalir])) {
    CargarSalidasHST();
  } else {
    CargarArchivoACT();
  }
  ImprimirIndice();
}

}  // namespace vintoral
