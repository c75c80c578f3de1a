#include "common/Numbers.h"
#include "station/Dat.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::CargarMarcas() {
  const std::optional<RegistroMixto> record = dat::Read(platform_.disk, dat::kMarcas);
  if (!record) return;
  if (record->Marca) CambiarModoFicha();
  if (record->Numero1 == 1) ImgPanico.Visible = true;
  ImgFondo.Tag = Digits(record->Numero2);
}

}  // namespace vintoral
