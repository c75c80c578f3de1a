#include <utility>
#include <vector>

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
  std::vector<RegistroFicha> view;
  const auto take = [&](std::int64_t, const RegistroFicha& record) {
    FichaAuxiliar = record;
    if (!SalioHoy(record, now)) return false;
    if (SalioHace(record, now, minutes)) view.push_back(record);
    return true;
  };
  const Result<std::int64_t> rows = hst.Count();
  const Outcome read = rows ? hst.WalkBack(*rows, 1, take) : rows.Why();
  read.PassOver();
  if (!read) return;  // what is on the screen stays there
  LiberarMemoria();
  VistaFichas = std::move(view);
}

}  // namespace vintoral
