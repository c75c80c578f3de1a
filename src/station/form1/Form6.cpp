#include "station/form1/Form6.h"

namespace vintoral {
namespace {

void MarkChanges(TextBox& box) {
  box.OnChange = [&box] { box.Tag = "1"_w; };
}

}  // namespace

Form6::Form6() {
  for (std::size_t i = 0; i < TxtTarifas.size(); ++i) {
    TxtTarifas[i].Name = "TxtTarifas(" + std::to_string(i) + ")";
    MarkChanges(TxtTarifas[i]);
  }
  TxtMoneda.Name = "TxtMoneda";
  MarkChanges(TxtMoneda);
}

}  // namespace vintoral
