#include <algorithm>
#include <iterator>

#include "station/CajasTarifas.h"
#include "station/LlenarTarifas.h"
#include "station/form1/Form1.h"
#include "tariffs/TextoTabla.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

/// None when the box has not been changed, or has been emptied.
std::vector<String> EditedLines(const TextBox& box) {
  return Cambiada(box) ? LineasDeTexto(box.Text()) : std::vector<String>{};
}

void Refill(std::vector<String>& table, const TextBox& box, String (*lineOf)(std::string_view)) {
  const std::vector<String> lines = EditedLines(box);
  if (lines.empty()) return;
  table.clear();
  std::transform(lines.begin(), lines.end(), std::back_inserter(table), lineOf);
}

}  // namespace

void Form1::ActualizarTarifas() {
  const std::vector<String> tariffs = EditedLines(Form6->TxtTarifas[0]);
  if (!tariffs.empty()) LlenarTarifas(*this, tariffs);
  Refill(TablaExtras, Form6->TxtTarifas[1], LineaExtraEditada);
  Refill(TablaPrepago, Form6->TxtTarifas[2], LineaPrepagoEditada);
}

}  // namespace vintoral
