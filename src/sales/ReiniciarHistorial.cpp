#include <string_view>

#include "sales/Advertir.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// Where a station has its own data, shared or not.
constexpr std::string_view kHistorial = "Multimedia\\Vintoral.HST";

/// Years of photos take their time: they are moved out of sight, and deleted beside the work at the gate.
void VaciarFotos(Form1& form, std::string_view carpeta) {
  const String ruta = "Multimedia\\"_w + String(carpeta);
  const String vieja = ruta + " (borrar)"_w;
  form.BorrarCarpeta(vieja);  // what a run that was killed has left
  form.MoverCarpeta(ruta, vieja);
  form.BorrarCarpeta(ruta);  // where it could not be moved
  form.CrearCarpeta(ruta);
  form.Devices().disk.Behind({vieja}, [vieja](Disk& disk) {
    if (disk.FolderExists(vieja)) disk.RemoveFolder(vieja).PassOver();
  });
}

}  // namespace

void Form1::ReiniciarHistorial() {
  Disk& disk = platform_.disk;
  if (!disk.Exists(kHistorial)) return;
  const bool wanted = Preguntar("Vintoral - Reiniciar Historial"_w,
                                "¿Desea realmente comenzar un nuevo historial?"_w, Answer::kNo);
  if (!wanted || !Advertir(platform_.screen, "el historial actual"_w)) return;
  // Photos without their history would be nobody's, a history without its photos half of one.
  if (!QuitarArchivo(disk, String(kHistorial))) return platform_.screen.Beep();
  VaciarFotos(*this, carpeta_fotos::kDetalles);
  VaciarFotos(*this, carpeta_fotos::kHistorial);
  if (CrearArchivoHST()) MidiWav(sonido::kHistorialReiniciado);
}

}  // namespace vintoral
