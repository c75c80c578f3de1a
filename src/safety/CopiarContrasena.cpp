#include "safety/ArchivoBloqueo.h"
#include "safety/form7/Form7.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CopiarContraseña() {
  const Outcome stored = GuardarBloqueo(platform_.disk, {ContraseñaActual, FuncionesBloqueadas});
  if (!stored) return stored.PassOver();
  // Whoever only changes the password leaves the functions open.
  ImgIndicador[indicador::kBloqueo].Visible = Form7 != nullptr && Form7->Bloqueando() &&
                                              !ContraseñaActual.Empty() &&
                                              bloqueo::HayBloqueadas(FuncionesBloqueadas);
}

}  // namespace vintoral
