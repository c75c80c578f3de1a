#include <string_view>

#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"
#include "station/form1/Sonidos.h"

namespace vintoral {
namespace {

/// Where a station has its own data, shared or not.
constexpr std::string_view kHistorial = "Multimedia\\Vintoral.HST";

bool Advertir(Screen& screen) {
  const Box box{"Vintoral - ADVERTENCIA"_w,
                "Está a punto de reiniciar el historial actual.\r\n¿Desea continuar?"_w,
                Icon::kCritical,
                {Answer::kYes, Answer::kNo},
                Answer::kNo};
  return screen.Show(box) == Answer::kYes;
}

void VaciarFotos(Form1& form, std::string_view carpeta) {
  const String ruta = "Multimedia\\"_w + String(carpeta);
  form.BorrarCarpeta(ruta);
  form.CrearCarpeta(ruta);
}

}  // namespace

void Form1::ReiniciarHistorial() {
  Disk& disk = platform_.disk;
  if (!disk.Exists(kHistorial)) return;
  const bool wanted = Preguntar("Vintoral - Reiniciar Historial"_w,
                                "¿Desea realmente comenzar un nuevo historial?"_w, Answer::kNo);
  if (!wanted || !Advertir(platform_.screen)) return;
  disk.ClearReadOnly(kHistorial).PassOver();
  disk.Remove(kHistorial).PassOver();
  VaciarFotos(*this, carpeta_fotos::kDetalles);
  VaciarFotos(*this, carpeta_fotos::kHistorial);
  if (CrearArchivoHST()) MidiWav(sonido::kHistorialReiniciado);
}

}  // namespace vintoral
