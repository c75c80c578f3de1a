#include "common/Numbers.h"
#include "station/Dat.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

/// The first view of the grid: through the monitor in force (1 to 3) or, for 0, through none.
void LoadView(Form1& form, std::int64_t monitor) {
  constexpr std::int64_t kMonitors = 3;
  if (monitor == 0) return form.TmrMonitor_Timer();
  if (monitor < 0 || monitor > kMonitors) return;
  form.PctBoton_Click(static_cast<int>(boton::kUltimosEnIngresar + static_cast<std::size_t>(monitor) - 1));
}

}  // namespace

void Form1::CargarEstadoPantalla() {
  const std::optional<RegistroMixto> record = dat::Read(platform_.disk, dat::kEstado);
  if (!record) return;
  PctBoton[boton::kUltimosEnIngresar].Tag = Digits(record->Numero1);
  PctBoton[boton::kTiempoDePermanencia].Tag = Digits(record->Numero2);
  PctBoton[boton::kUltimosEnSalir].Tag = record->Importe.Plain();
  if (record->Marca) ActivarTiquetes();
  PctBoton[boton::kFacturas].BorderStyle = NumberOf(record->CampoB) != 0 ? 1 : 0;
  LoadView(*this, NumberOf(record->CampoA));
}

}  // namespace vintoral
