#include "records/BuscarCodigo.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::TxtBarCode_Change() {
  TmrBarCode.Restart();
  if (TxtBarCodeOK.Visible || Trim(TxtBarCode.Text()).Size() != kLargoCodigo) return;
  lectura_.Leida();  // a pass waits in there, and the Enter behind it comes meanwhile
  BuscarCodigoBarras();
  // Over a slow share the Enter has come by now. Behind a pass it has long gone by, and whatever comes now is
  // the operator's.
  if (FichaEnPantalla()) lectura_.Leida();
}

}  // namespace vintoral
