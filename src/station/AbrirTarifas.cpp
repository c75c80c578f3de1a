#include <algorithm>
#include <array>
#include <memory>

#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Sonidos.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

constexpr std::array kTableFiles = {archivo::kTarifas, archivo::kExtras, archivo::kPrepago};

}  // namespace

void Form1::AbrirTarifas() {
  const Disk& disk = platform_.disk;
  const bool complete = std::all_of(kTableFiles.begin(), kTableFiles.end(),
                                    [&](std::string_view file) { return disk.Exists(file); });
  if (complete) {
    MidiWav(sonido::kClic);
    return OpenForms.ShowModal(OpenForms.Load(std::make_unique<class Form6>(*this)));
  }
  const String text = "No se puede encontrar el archivo generador de tarifas. La carpeta '"_w +
                      disk.CurrentFolder() + "' está protegida contra escritura o el archivo ya no existe."_w;
  platform_.screen.Show(
      {"Vintoral - Imposible Abrir Archivo"_w, text, Icon::kExclamation, {Answer::kOk}, Answer::kOk});
}

}  // namespace vintoral
