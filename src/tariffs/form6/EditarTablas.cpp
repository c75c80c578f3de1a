// The tables as their dialog shows them, takes them back and saves them.
#include <algorithm>
#include <array>
#include <iterator>

#include "station/form1/Form1.h"
#include "tariffs/Tablas.h"
#include "tariffs/TextoTabla.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

bool Changed(const TextBox& box) {
  return box.TagNumber() == 1;
}

/// None when the box has not been changed, or has been emptied.
std::vector<String> EditedLines(const TextBox& box) {
  return Changed(box) ? LineasDeTexto(box.Text()) : std::vector<String>{};
}

void Refill(std::vector<String>& table, const TextBox& box, String (*lineOf)(std::string_view)) {
  const std::vector<String> lines = EditedLines(box);
  if (lines.empty()) return;
  table.clear();
  std::transform(lines.begin(), lines.end(), std::back_inserter(table), lineOf);
}

}  // namespace

void Form1::ImprimirTarifas() {
  Form6->TxtTarifas[0].SetText(TextoDeTabla(TablaTarifas));
  Form6->TxtTarifas[1].SetText(TextoDeTabla(TablaExtras));
  Form6->TxtTarifas[2].SetText(TextoDeTabla(TablaPrepago));
}

void Form1::ActualizarTarifas() {
  const std::vector<String> tariffs = EditedLines(Form6->TxtTarifas[0]);
  if (!tariffs.empty()) LlenarTarifas(tariffs);
  Refill(TablaExtras, Form6->TxtTarifas[1], LineaExtraEditada);
  Refill(TablaPrepago, Form6->TxtTarifas[2], LineaPrepagoEditada);
}

void Form1::CopiarTarifas() {
  struct Table {
    const char* file;
    const std::vector<String>* lines;
  };
  const std::array<Table, 3> tables = {{{"Recursos\\Vintoral.EMP", &TablaTarifas},
                                        {"Recursos\\Vintoral.XTR", &TablaExtras},
                                        {"Recursos\\Vintoral.RJE", &TablaPrepago}}};
  for (std::size_t k = 0; k < tables.size(); ++k) {
    if (!Changed(Form6->TxtTarifas[k])) continue;
    platform_.disk.ClearReadOnly(tables[k].file).PassOver();
    const Outcome written = platform_.disk.Replace(tables[k].file, CodificarLineas(*tables[k].lines));
    written.PassOver();
    if (!written) return;
  }
}

}  // namespace vintoral
