#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {

void Form1::GuardarFotosUsuario(std::int32_t numero, bool primera) {
  // The photo last stored may be that of another vehicle, when this one came in without.
  if (numero < 1 || RutaFotoFicha != RutaFotoAdentro(*this, FichaActual.Posicion)) return;
  Disk& disk = platform_.disk;
  if (!disk.Exists(RutaFotoFicha)) return;
  if (primera) disk.Copy(RutaFotoFicha, RutaFotoPrimera(*this, numero)).PassOver();
  disk.Copy(RutaFotoFicha, RutaFotoUsuario(*this, numero)).PassOver();
}

}  // namespace vintoral
