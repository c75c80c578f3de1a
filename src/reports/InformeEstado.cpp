#include "reports/FilaFicha.h"
#include "reports/InformeFichas.h"

namespace vintoral {

InformeHecho InformeEstado(const DatosInforme& datos, std::span<const RegistroFicha> vista, Destino destino) {
  InformeFichas report(datos, std::move(destino));
  String before;
  for (std::size_t i = 0; i < vista.size(); ++i) {
    const String date = FechaDeFila(vista[i]);
    if (i > 0 && date != before) report.CerrarDia();
    before = date;
    if (vista[i].EnUso) report.Fila(vista[i], date);
    if (!datos.sigue(static_cast<double>(i + 1) / static_cast<double>(vista.size())))
      return InformeFichas::Interrumpir();
  }
  if (!vista.empty()) report.CerrarDia();
  return report.Terminar(static_cast<std::int64_t>(vista.size()));
}

}  // namespace vintoral
