#include "records/BuscarCodigo.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::TxtBarCode_Change() {
  TmrBarCode.Restart();
  if (TxtBarCodeOK.Visible || Trim(TxtBarCode.Text()).Size() != kLargoCodigo) return;
  lectura_.Leida();  // a pass waits in there, and the Enter behind it comes meanwhile
  BuscarCodigoBarras();
  lectura_.Leida();  // over a slow share it has come by now
}

}  // namespace vintoral
