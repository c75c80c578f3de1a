#include "records/LineaTexto.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CargarMoneda() {
  const Result<String> text = platform_.disk.ReadAll(archivo::kMoneda);
  Moneda = text ? Left(PrimeraLinea(*text), kAnchoMoneda) : "$"_w;
  if (text.Why().Missing()) return platform_.disk.Replace(archivo::kMoneda, ConFinDeLinea(Moneda)).PassOver();
  text.Why().PassOver();  // out of reach for the moment: what it holds stays
}

}  // namespace vintoral
