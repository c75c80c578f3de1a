#include "station/Ayuda.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::EscribirAyuda() {
  if (platform_.disk.Exists(archivo::kAyuda)) return;
  const Outcome written = platform_.disk.Replace(archivo::kAyuda, TextoAyuda());
  written.PassOver();
  if (!written) Detener(ProtegidaContraEscritura());
}

}  // namespace vintoral
