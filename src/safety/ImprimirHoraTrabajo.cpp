#include "safety/Horario.h"
#include "station/form1/Archivos.h"
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
  const String why =
      "La carpeta '"_w + disk.CurrentFolder() +
      "' está protegida contra escritura. No es posible crear el archivo de impresión \"Vintoral.RGT\"."_w;
  platform_.screen.Show(
      {"Vintoral - Imposible Imprimir"_w, why, Icon::kExclamation, {Answer::kOk}, Answer::kOk});
}

}  // namespace vintoral
