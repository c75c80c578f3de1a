#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CambiarMinutos() {
  EtiquetaMonitor();
  TmrMonitor_Timer();
}

}  // namespace vintoral
