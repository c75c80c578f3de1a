#include "station/form1/Form1.h"
#include "tariffs/TextoTabla.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {

void Form1::ImprimirTarifas() {
  Form6->TxtTarifas[0].SetText(TextoDeTabla(TablaTarifas));
  Form6->TxtTarifas[1].SetText(TextoDeTabla(TablaExtras));
  Form6->TxtTarifas[2].SetText(TextoDeTabla(TablaPrepago));
}

}  // namespace vintoral
