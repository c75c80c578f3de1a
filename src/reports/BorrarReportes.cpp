#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "station/form1/Fotos.h"

namespace vintoral {

void Form1::BorrarReportes() {
  for (const std::string_view reporte : {archivo::kPagina, archivo::kHorario}) {
    if (platform_.disk.Exists(reporte)) QuitarArchivo(platform_.disk, String(reporte));
  }
}

}  // namespace vintoral
