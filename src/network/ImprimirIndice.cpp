#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImprimirIndice() {
  LimpiarPantalla();
  const std::int32_t pages =
      TotalVista() / kGridCells + (TotalVista() % kGridCells != 0 || TotalVista() == 0 ? 1 : 0);
  LblInfo[0].Caption = Digits(TotalVista()) + " ( "_w + Digits(InicioPagina / kGridCells + 1) + "/"_w +
                       Digits(pages) + " )  "_w;
}

}  // namespace vintoral
