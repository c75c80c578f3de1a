#include "station/form1/Form1.h"

namespace vintoral {

void Form1::Detener(const String& texto) {
  TotalFichas = 0;
  for (Timer* timer : Timers())
    timer->SetEnabled(false);
  if (iniciado_) Form_Unload();
  iniciado_ = false;  // stored: a signal under the box must not store it again
  platform_.screen.Show(
      {"Vintoral - Imposible Continuar"_w, texto, Icon::kCritical, {Answer::kOk}, Answer::kOk});
  Terminar();
}

}  // namespace vintoral
