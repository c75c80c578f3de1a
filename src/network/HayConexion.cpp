#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::HayConexion() {
  if (platform_.disk.Exists(RutaCompartida("Vintoral.ACT"))) return true;
  BuscarEnlaceYa();
  return false;
}

}  // namespace vintoral
