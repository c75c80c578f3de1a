#include "station/form1/Informes.h"

#include "station/form1/Archivos.h"

namespace vintoral {

void BorrarReportes(Disk& disk) {
  for (const std::string_view file : {archivo::kPagina, archivo::kHorario}) {
    if (!disk.Exists(file)) continue;
    disk.ClearReadOnly(file).PassOver();
    disk.Remove(file).PassOver();
  }
}

}  // namespace vintoral
