#include "station/form1/Form1.h"

namespace vintoral {

void Form1::Esperar(std::int64_t milisegundos) {
  if (milisegundos > 0) platform_.screen.Wait(milisegundos);
}

}  // namespace vintoral
