#include <tuple>

#include "station/CajasTarifas.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "tariffs/Tablas.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

/// False when the box was changed and the file can't be written.
bool CopyTable(Form1& form, std::size_t box, std::string_view file, const std::vector<String>& lines) {
  if (!Cambiada(form.Form6->TxtTarifas[box])) return true;
  Disk& disk = form.Devices().disk;
  disk.ClearReadOnly(file).PassOver();
  const Outcome written = disk.Replace(file, CodificarLineas(lines));
  written.PassOver();
  return static_cast<bool>(written);
}

}  // namespace

void Form1::CopiarTarifas() {
  std::ignore = CopyTable(*this, 0, archivo::kTarifas, TablaTarifas) &&
                CopyTable(*this, 1, archivo::kExtras, TablaExtras) &&
                CopyTable(*this, 2, archivo::kPrepago, TablaPrepago);
}

}  // namespace vintoral
