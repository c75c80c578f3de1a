#include "safety/Horario.h"
#include "station/form1/Archivos.h"
#include "station/form1/AvisoImpresion.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImprimirHoraTrabajo() {
  Disk& disk = platform_.disk;
  const Result<String> log = disk.ReadAll(archivo::kFunciones);
  const String text = TextoHorario(NumeroPorteria, log ? &*log : nullptr);
  disk.ClearReadOnly(archivo::kHorario).PassOver();
  const Outcome written = disk.ReplaceUnsynced(archivo::kHorario, text);
  if (written) return platform_.system.Launch("Notepad.exe "_w + String(archivo::kHorario));
  written.PassOver();
  AvisarImposibleImprimir(platform_, archivo::kHorario);
}

}  // namespace vintoral
