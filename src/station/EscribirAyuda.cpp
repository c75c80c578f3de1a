#include "station/Ayuda.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::EscribirAyuda() {
  const String file = "Vintoral Léame.TXT"_w;
  if (platform_.disk.Exists(file)) return;
  const Outcome written = platform_.disk.Replace(file, TextoAyuda());
  if (written) return;
  written.PassOver();
  TotalFichas = 0;
  ImposibleContinuar(ProtegidaContraEscritura());
  Terminar();
}

}  // namespace vintoral
