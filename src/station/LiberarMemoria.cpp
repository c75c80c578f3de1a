#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LiberarMemoria() {
  std::vector<RegistroFicha>().swap(VistaFichas);
}

}  // namespace vintoral
