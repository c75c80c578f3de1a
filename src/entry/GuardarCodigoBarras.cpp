#include "common/Numbers.h"
#include "records/Register.h"
#include "records/RegistroCodigo.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::GuardarCodigoBarras(bool activo) {
  Register<RegistroCodigo> codigos(platform_.disk, RutaMostrada("Vintoral.CDB"), OpenMode::kReadWrite);
  if (codigos.Missing()) return;
  RegistroCodigo registro;
  if (activo) {
    registro.CodigoBarras = Trim(TxtBarCode.Text());
    registro.FichaCodigo = FichaActual.NumeroFicha.Trimmed();
  }
  codigos.Write(LeadingInteger(FichaActual.NumeroFicha.View()), registro, true).PassOver();
}

}  // namespace vintoral
