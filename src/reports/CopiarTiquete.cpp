#include "reports/form3/Form3.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CopiarTiquete() {
  if (Form3 == nullptr) return;
  TiqueteActual = Form3->Formato();
  const auto bytes = TiqueteActual.Encode();
  platform_.disk.ClearReadOnly(archivo::kTiquete).PassOver();
  platform_.disk.Replace(archivo::kTiquete, {bytes.data(), bytes.size()}).PassOver();
}

}  // namespace vintoral
