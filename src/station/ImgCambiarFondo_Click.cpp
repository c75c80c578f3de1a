#include "common/Numbers.h"
#include "station/form1/Archivos.h"
#include "station/form1/Bloqueos.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImgCambiarFondo_Click() {
  if (!Permite(bloqueo::kFondo)) return;
  FilFondos.List =
      platform_.disk.List(archivo::kFondos, ".jpg");  // pictures come and go while the station runs
  const auto files = static_cast<int>(FilFondos.List.size());
  if (files == 0) return;
  FilFondos.ListIndex = (FilFondos.ListIndex + 1) % files;
  ImgFondo.Tag = Digits(FilFondos.ListIndex);
  MostrarFondo();
}

}  // namespace vintoral
