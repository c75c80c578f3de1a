#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {

void Form1::CambiarModoFicha() {
  if (FichaEnPantalla()) Cancelar();
  if (!IsPressed(PctBoton[boton::kTiquetes])) return;  // no barcodes without tickets
  const bool barcodes = !CmdBarCode.Visible;
  TxtEtiqueta[0].SetText(barcodes ? "CODIGO BARRAS "_w : "NUMERO FICHA "_w);
  TxtCampo[0].Enabled = !barcodes;
  // The two buttons share one place.
  CmdNumeroFicha.Visible = !barcodes;
  CmdBarCode.Visible = barcodes;
  CmdBarCode.Enabled = barcodes;
  TxtBarCode.Visible = barcodes;
  SetFocus(barcodes ? &TxtBarCode : &TxtCampo[0]);
}

}  // namespace vintoral
