#include <memory>

#include "station/form1/Form1.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {

void Form1::AbrirTarifas() {
  const Disk& disk = platform_.disk;
  if (disk.Exists("Recursos\\Vintoral.EMP") && disk.Exists("Recursos\\Vintoral.XTR") &&
      disk.Exists("Recursos\\Vintoral.RJE")) {
    MidiWav("Sonidos\\Vintoral-5.wav");
    OpenForms.ShowModal(OpenForms.Load(std::make_unique<class Form6>(*this)));
    return;
  }
  const String text = "No se puede encontrar el archivo generador de tarifas. La carpeta '"_w +
                      disk.CurrentFolder() + "' está protegida contra escritura o el archivo ya no existe."_w;
  platform_.screen.Show(
      {"Vintoral - Imposible Abrir Archivo"_w, text, Icon::kExclamation, {Answer::kOk}, Answer::kOk});
}

}  // namespace vintoral
