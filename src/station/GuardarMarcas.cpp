#include "station/Dat.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::GuardarMarcas() {
  RegistroMixto record;
  record.Marca = TxtBarCode.Visible;
  record.Numero1 = ImgPanico.Visible ? 1 : 0;
  record.Numero2 = dat::Short(ImgFondo.TagNumber());
  record.Importe = Money::FromUnits(ImgIndicador[indicador::kCamaraDesactivada].Visible ? 1 : 0);
  dat::Write(platform_.disk, dat::kMarcas, record);
}

}  // namespace vintoral
