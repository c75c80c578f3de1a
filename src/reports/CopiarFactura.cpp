#include "records/Register.h"
#include "reports/form8/Form8.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Papel.h"

namespace vintoral {
namespace {

/// All of the record may have become another one.
Outcome Reemplazar(Disk& disk, const RegistroFactura& formato) {
  const auto bytes = formato.Encode();
  return disk.Replace(archivo::kFactura, {bytes.data(), bytes.size()});
}

/// Written in place, where the number lies within one page: it is on disk together with the row of the
/// history, and a station that is killed meanwhile leaves the old number or the new one.
Outcome AnotarNumero(Disk& disk, const RegistroFactura& formato) {
  Register<RegistroFactura> file(disk, archivo::kFactura, OpenMode::kCreate);
  return file ? file.Write(1, formato, true) : file.Opened();
}

}  // namespace

void Form1::CopiarFactura(bool desdeEditor) {
  if (desdeEditor && Form8 != nullptr) FacturaActual = Form8->Formato();
  if (!desdeEditor) FacturaActual.NumFactura = NumeroSiguiente(FacturaActual.NumFactura);
  Disk& disk = platform_.disk;
  disk.ClearReadOnly(archivo::kFactura).PassOver();
  (desdeEditor ? Reemplazar(disk, FacturaActual) : AnotarNumero(disk, FacturaActual)).PassOver();
}

}  // namespace vintoral
