#include <string_view>

#include "records/Register.h"
#include "station/form1/Form1.h"
#include "station/form1/ListaVentas.h"

namespace vintoral {
namespace {

/// The newest sale is the last one before the shift. Sales push its mark down the list.
void MarcarVentas(Disk& disk) {
  const Outcome marked =
      CambiarUltimaVenta(disk, [](const BytesExtra& newest) { return ConMarcaTurno(newest); });
  if (!marked.Missing()) marked.PassOver();
}

/// The same of the last row of a register of fichas. Under the lock: a row that another gate appends just now
/// belongs to the shift.
void MarcarUltima(Form1& form, std::string_view archivo) {
  Register<RegistroFicha> registro(form.Devices().disk, form.RutaCompartida(archivo), OpenMode::kReadWrite);
  if (registro.Missing()) return;
  const auto marcar = [&]() -> Outcome {
    const Result<std::int64_t> filas = registro.Count();
    if (!filas || *filas == 0) return filas.Why();
    const Result<RegistroFicha> ultima = registro.Read(*filas);
    if (!ultima) return ultima.Why();
    form.FichaAuxiliar = *ultima;
    form.FichaAuxiliar.InicioTurno = true;
    return registro.Write(*filas, form.FichaAuxiliar, false);
  };
  registro.UnderLock(marcar).PassOver();
}

}  // namespace

void Form1::IniciarTurno() {
  MarcarVentas(platform_.disk);
  for (const std::string_view archivo : {"Vintoral.HST", "Vintoral.NSR", "Vintoral.CRD"})
    MarcarUltima(*this, archivo);
  MarcaTurno = StampOf(platform_.clock.Now());
}

}  // namespace vintoral
