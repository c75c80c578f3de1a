#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {

void Form1::GuardarFotosUsuario(std::int32_t numero, bool primera) {
  Disk& disk = platform_.disk;
  if (numero < 1 || !disk.Exists(RutaFotoFicha)) return;
  if (primera) disk.Copy(RutaFotoFicha, RutaFotoPrimera(*this, numero)).PassOver();
  disk.Copy(RutaFotoFicha, RutaFotoUsuario(*this, numero)).PassOver();
}

}  // namespace vintoral
