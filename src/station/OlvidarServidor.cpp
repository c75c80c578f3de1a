#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::OlvidarServidor() {
  platform_.disk.ClearReadOnly(archivo::kServidor).PassOver();
  platform_.disk.Remove(archivo::kServidor).PassOver();
  static_cast<void>(CargarServidor());
}

}  // namespace vintoral
