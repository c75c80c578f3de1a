#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ActivarFacturas() {
  PctBoton[boton::kFacturas].BorderStyle = 1;
  if (!FichaEnPantalla()) return;
  // Whoever switches invoices on before a ficha wants one for it, and sees the tick.
  ChkFactura.Tag = "1"_w;
  ChkFactura.Value = 1;
  ChkFactura.Enabled = true;
  ChkFactura.Visible = true;
  ImgIndicador[indicador::kImprimirFactura].Visible = true;
}

}  // namespace vintoral
