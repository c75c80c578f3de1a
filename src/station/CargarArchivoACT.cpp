// The view of the grid, rebuilt from the registers.
#include <algorithm>
#include <span>

#include "common/Numbers.h"
#include "records/Monitores.h"
#include "records/Register.h"
#include "station/form1/Form1.h"

namespace vintoral {
namespace {

int MinutesIn(std::string_view text) {
  constexpr std::int64_t kMost = 1'000'000;  // what is typed beyond it must not turn into a negative number
  return static_cast<int>(std::clamp<std::int64_t>(LeadingInteger(text), 0, kMost));
}

}  // namespace

void Form1::LiberarMemoria() {
  std::vector<RegistroFicha>().swap(VistaFichas);
}

// FichaActual stays what it is: the fare of a ficha on display is computed from it.
void Form1::CargarArchivoACT() {
  const Register<RegistroFicha> act(platform_.disk, RutaCompartida("Vintoral.ACT"), OpenMode::kRead);
  if (!act) return;
  const Moment now = platform_.clock.Now();
  const int minutes = MinutesIn(CboMinutos.Text());
  const bool ingresos = PctBoton[7].BorderStyle == 1;
  const bool permanencia = PctBoton[8].BorderStyle == 1;
  const bool salidas = PctBoton[9].BorderStyle == 1;  // lists who has left: nobody of these
  LiberarMemoria();
  VistaFichas.reserve(static_cast<std::size_t>(TotalFichas));
  const auto take = [&](std::int64_t, std::span<const char, RegistroFicha::kSize> bytes) {
    if (!EstaDentro(bytes)) return true;
    const RegistroFicha record = RegistroFicha::Decode(bytes);
    const bool shown = ingresos      ? EntroHace(record, now, minutes)
                       : permanencia ? PermaneceDesde(record, now, minutes)
                                     : !salidas;
    if (shown) VistaFichas.push_back(record);
    return true;
  };
  act.WalkBytes(1, TotalFichas, take).PassOver();
}

void Form1::CargarSalidasHST() {
  const Register<RegistroFicha> hst(platform_.disk, RutaCompartida("Vintoral.HST"), OpenMode::kRead);
  if (!hst) return TmrConexion.SetInterval(100);
  const Moment now = platform_.clock.Now();
  const int minutes = MinutesIn(CboMinutos.Text());
  LiberarMemoria();
  const auto take = [&](std::int64_t, const RegistroFicha& record) {
    FichaAuxiliar = record;
    if (!SalioHoy(record, now)) return false;
    if (SalioHace(record, now, minutes)) VistaFichas.push_back(record);
    return true;
  };
  hst.WalkBack(hst.Count().PassOver().value_or(0), 1, take).PassOver();
}

}  // namespace vintoral
