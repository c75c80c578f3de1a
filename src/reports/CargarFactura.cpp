#include <algorithm>

#include "records/Register.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CargarFactura() {
  const Register<RegistroFactura> file(platform_.disk, archivo::kFactura, OpenMode::kRead);
  if (file.Missing()) return;
  const auto record = file.Read(1).PassOver();
  if (!record) return;
  FacturaActual = *record;
  FacturaActual.NumFactura = std::max(FacturaActual.NumFactura, 0);  // of a damaged file
}

}  // namespace vintoral
