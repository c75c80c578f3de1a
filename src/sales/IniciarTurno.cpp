#include <array>
#include <memory>
#include <string_view>

#include "records/Register.h"
#include "records/RegistroExtra.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/ListaVentas.h"

namespace vintoral {
namespace {

/// The newest sale is the last one before the shift. Sales push its mark down the list.
void MarcarVentas(Disk& disk) {
  AsentarListaVentas(disk).PassOver();
  if (!disk.Exists(archivo::kVentas)) return;
  disk.ClearReadOnly(archivo::kVentas).PassOver();
  const Result<std::unique_ptr<DiskFile>> file = disk.Open(archivo::kVentas, OpenMode::kReadWrite);
  if (!file) return file.Why().PassOver();
  std::array<char, RegistroExtra::kSize> newest{};
  const Result<std::size_t> read = (*file)->ReadAt(0, newest);
  if (!read || *read == 0) return read.Why().PassOver();
  const Outcome written = (*file)->WriteAt(0, ConMarcaTurno(newest));
  (written ? (*file)->Sync() : written).PassOver();
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
