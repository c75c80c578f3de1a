#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::TmrMonitor_Timer() {
  if (Form2 != nullptr) return;  // what was found is looked at
  // The main gate redraws with its own saves and retirings; by timer only while it starts.
  if (!HayMonitor(*this) && EsCliente == 0 && TmrHorario.Enabled) return;
  RefrescarVista();
}

}  // namespace vintoral
