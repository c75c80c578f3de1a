#include "sales/Advertir.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/ListaVentas.h"
#include "station/form1/Sonidos.h"

namespace vintoral {

void Form1::ReiniciarContadorExtras() {
  if (!platform_.disk.Exists(archivo::kVentas)) return;
  const bool wanted = Preguntar("Vintoral - Reiniciar Extras"_w,
                                "¿Desea realmente reiniciar el contador de extras?"_w, Answer::kNo);
  if (!wanted || !Advertir(platform_.screen, "el contador de extras"_w)) return;
  // The newest line becomes the one at which reports stop. A file in which nothing stands says so already.
  CambiarUltimaVenta(platform_.disk, [](const BytesExtra& newest) {
    return ConHoraVenta(newest, RegistroExtra::kSinHora);
  }).PassOver();
  MidiWav(sonido::kExtrasReiniciados);
}

}  // namespace vintoral
