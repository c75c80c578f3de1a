#include <span>
#include <utility>
#include <vector>

#include "records/Monitores.h"
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {
namespace {

/// Does the monitor in force list a ficha that is inside? Without a monitor all are listed.
bool IsListed(const Form1& form, const RegistroFicha& ficha, Moment now) {
  const int minutes = MinutosDelMonitor(form);
  if (IsPressed(form.PctBoton[boton::kUltimosEnIngresar])) return EntroHace(ficha, now, minutes);
  if (IsPressed(form.PctBoton[boton::kTiempoDePermanencia])) return PermaneceDesde(ficha, now, minutes);
  return !IsPressed(form.PctBoton[boton::kUltimosEnSalir]);  // lists who has left: nobody of these
}

}  // namespace

// FichaActual stays what it is: the fare of a ficha on display is computed from it.
void Form1::CargarArchivoACT() {
  const Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kRead);
  if (act.Missing()) return;
  if (!act) return act.Opened().PassOver();
  const Moment now = platform_.clock.Now();
  std::vector<RegistroFicha> view;
  view.reserve(static_cast<std::size_t>(TotalFichas));
  const auto take = [&](std::int64_t, std::span<const char, RegistroFicha::kSize> bytes) {
    if (!EstaDentro(bytes)) return true;
    const RegistroFicha record = RegistroFicha::Decode(bytes);
    if (IsListed(*this, record, now)) view.push_back(record);
    return true;
  };
  const Outcome read = act.WalkBytes(1, TotalFichas, take);
  read.PassOver();
  if (!read) return;  // what is on the screen stays there
  LiberarMemoria();
  VistaFichas = std::move(view);
}

}  // namespace vintoral
