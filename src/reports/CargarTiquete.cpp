#include "records/Register.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CargarTiquete() {
  const Register<RegistroTiquete> file(platform_.disk, archivo::kTiquete, OpenMode::kRead);
  if (file.Missing()) return;
  if (const auto record = file.Read(1).PassOver()) TiqueteActual = *record;
}

}  // namespace vintoral
