#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImgFicha_MouseMove(int cell) {
  if (SenalarCelda(cell)) EtiquetaMonitor();
}

}  // namespace vintoral
