#include <algorithm>

#include "station/Dat.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {
namespace {

/// The largest whole number that money holds.
constexpr std::int64_t kMostUnits = 922'337'203'685'477;

}  // namespace

void Form1::GuardarEstadoPantalla() {
  RegistroMixto record;
  record.CampoA = dat::Short(CboMinutos.TagNumber());
  record.CampoB = dat::Short(PctBoton[boton::kFacturas].BorderStyle);
  record.Numero1 = dat::Short(PctBoton[boton::kUltimosEnIngresar].TagNumber());
  record.Numero2 = dat::Short(PctBoton[boton::kTiempoDePermanencia].TagNumber());
  record.Importe =
      Money::FromUnits(std::clamp(PctBoton[boton::kUltimosEnSalir].TagNumber(), -kMostUnits, kMostUnits));
  record.Marca = IsPressed(PctBoton[boton::kTiquetes]);
  dat::Write(platform_.disk, dat::kEstado, record);
}

}  // namespace vintoral
