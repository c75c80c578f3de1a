// The tariff files of this station: made when missing, loaded into the tables.
#include <algorithm>
#include <iterator>

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

void Form1::LlenarTarifas(const std::vector<String>& lineas) {
  CboTarifa[1].Clear();
  TablaTarifas.clear();
  for (const String& linea : lineas) {
    TablaTarifas.push_back(LineaTarifa(linea));
    if (EsCategoria(linea)) CboTarifa[1].AddItem(TablaTarifas.back());
  }
  CboTarifa[1].Select(0);
}

void Form1::CargarTablas() {
  Disk& disk = platform_.disk;
  const auto load = [&](std::string_view file, auto take) {
    if (!disk.Exists(file)) return true;
    const std::optional<String> bytes = disk.ReadAll(file).PassOver();
    if (!bytes) return false;
    take(DecodificarLineas(*bytes));
    return true;
  };
  if (!load("Recursos\\Vintoral.EMP", [&](const std::vector<String>& lines) { LlenarTarifas(lines); }))
    return;
  const auto extras = [&](const std::vector<String>& lines) {
    TablaExtras.clear();
    std::transform(lines.begin(), lines.end(), std::back_inserter(TablaExtras), LineaExtra);
  };
  if (!load("Recursos\\Vintoral.XTR", extras)) return;
  static_cast<void>(
      load("Recursos\\Vintoral.RJE", [&](std::vector<String> lines) { TablaPrepago = std::move(lines); }));
}

}  // namespace vintoral
