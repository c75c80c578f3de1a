#include "station/LlenarTarifas.h"

#include "tariffs/Tablas.h"

namespace vintoral {

void LlenarTarifas(Form1& form, const std::vector<String>& lineas) {
  form.CboTarifa[1].Clear();
  form.TablaTarifas.clear();
  for (const String& linea : lineas) {
    form.TablaTarifas.push_back(LineaTarifa(linea));
    if (EsCategoria(linea)) form.CboTarifa[1].AddItem(form.TablaTarifas.back());
  }
  form.CboTarifa[1].Select(0);
}

}  // namespace vintoral
