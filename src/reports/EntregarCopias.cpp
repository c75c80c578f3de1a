#include "station/form1/Form1.h"

namespace vintoral {

void Form1::EntregarCopias() {
  if (entregandoCopias_) return;
  entregandoCopias_ = true;
  while (!copias_.empty()) {
    Esperar(copias_.front().momento - platform_.clock.Ticks());
    platform_.printer.EndDoc(std::move(copias_.front().documento));
    copias_.pop_front();
  }
  entregandoCopias_ = false;
}

}  // namespace vintoral
