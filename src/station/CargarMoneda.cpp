#include "records/LineaTexto.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CargarMoneda() {
  if (const std::optional<String> text = platform_.disk.ReadAll(archivo::kMoneda)) {
    Moneda = Left(PrimeraLinea(*text), kAnchoMoneda);
    return;
  }
  Moneda = "$"_w;
  if (platform_.disk.Exists(archivo::kMoneda)) return;  // out of reach for the moment: what it holds stays
  platform_.disk.Replace(archivo::kMoneda, ConFinDeLinea(Moneda)).PassOver();
}

}  // namespace vintoral
