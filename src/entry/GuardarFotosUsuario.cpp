#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {

void Form1::GuardarFotosUsuario(std::int32_t numero, bool primera) {
  if (!platform_.disk.Exists(RutaFotoFicha)) return;
  for (const String& foto : RutasFotosUsuario(*this, numero, primera))
    platform_.disk.Copy(RutaFotoFicha, foto).PassOver();
}

}  // namespace vintoral
