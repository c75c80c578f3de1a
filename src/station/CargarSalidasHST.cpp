#include "records/Monitores.h"
#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::CargarSalidasHST() {
  const Register<RegistroFicha> hst(platform_.disk, RutaCompartida("Vintoral.HST"), OpenMode::kRead);
  if (!hst) {
    if (!hst.Missing()) hst.Opened().PassOver();
    return BuscarEnlaceYa();
  }
  const Moment now = platform_.clock.Now();
  const int minutes = MinutosDelMonitor(*this);
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
