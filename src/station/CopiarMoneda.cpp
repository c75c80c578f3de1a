#include "records/LineaTexto.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {

void Form1::CopiarMoneda() {
  if (Form6->TxtMoneda.TagNumber() != 1) return;
  const String symbol = Left(TrimBlanks(Form6->TxtMoneda.Text()), kAnchoMoneda);
  platform_.disk.ClearReadOnly(archivo::kMoneda).PassOver();
  const Outcome written = platform_.disk.Replace(archivo::kMoneda, ConFinDeLinea(symbol));
  written.PassOver();
  if (written) Moneda = symbol;
}

}  // namespace vintoral
