#include <cstdio>

#include "camera/Retencion.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::LimpiarFotosViejas() {
  // The main gate alone, and not while somebody waits.
  if (EsCliente != 0 || !Conectada() || FichaEnCurso()) return;
  if (retencion_ == nullptr) {
    const Moment ahora = platform_.clock.Now();
    const String hoy = DateText(ahora);
    if (diaRetencion_ == hoy) return;
    diaRetencion_ = hoy;
    const PlazosFotos plazos = LeerPlazos(platform_.disk);
    if (plazos.Ninguno()) return;
    const auto ruta = [this](std::string_view file) { return RutaCompartida(file); };
    retencion_ = std::make_shared<Retencion>(platform_.disk, ruta, plazos, ahora);
  }
  if (retencion_->Avanzar()) return;
  std::fprintf(stderr, "vintoral: %d old photos and %d folders of additional photos deleted\n",
               retencion_->Fotos(), retencion_->Carpetas());
  retencion_.reset();
}

}  // namespace vintoral
