// The tariff files of this station: made when missing, loaded into the tables.
#include <cerrno>

#include "station/form1/Form1.h"
#include "tariffs/Tablas.h"

namespace vintoral {

void Form1::CrearTablasPredeterminadas() {
  struct Default {
    const char* file;
    std::vector<String> (*lines)();
  };
  for (const Default& each : {Default{"Recursos\\Vintoral.EMP", TarifasPredeterminadas},
                              Default{"Recursos\\Vintoral.XTR", ExtrasPredeterminados},
                              Default{"Recursos\\Vintoral.RJE", PrepagoPredeterminado}}) {
    if (platform_.disk.Exists(each.file)) continue;
    const Outcome made = platform_.disk.Replace(each.file, CodificarLineas(each.lines()));
    made.PassOver();
    if (!made) return;
  }
}

void Form1::CargarTablas() {
  Disk& disk = platform_.disk;
  const auto load = [&](std::string_view file, auto each) {
    if (!disk.Exists(file)) return true;
    const std::optional<String> bytes = disk.ReadAll(file);
    if (!bytes) {
      Outcome::Failed("read", file, EIO).PassOver();
      return false;
    }
    for (const String& line : DecodificarLineas(*bytes))
      each(line);
    return true;
  };
  const bool tariffs = load("Recursos\\Vintoral.EMP", [&](const String& line) {
    TablaTarifas.push_back(LineaTarifa(line));
    if (EsCategoria(Trim(line))) CboTarifa[1].AddItem(TablaTarifas.back());
  });
  CboTarifa[1].Select(0);
  if (!tariffs) return;
  if (!load("Recursos\\Vintoral.XTR", [&](const String& line) { TablaExtras.push_back(LineaExtra(line)); }))
    return;
  static_cast<void>(
      load("Recursos\\Vintoral.RJE", [&](const String& line) { TablaPrepago.push_back(line); }));
}

}  // namespace vintoral
