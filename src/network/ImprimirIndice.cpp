#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImprimirIndice() {
  constexpr std::int32_t kCells = 50;
  LimpiarPantalla();
  const std::int32_t pages =
      TotalVista() / kCells + (TotalVista() % kCells != 0 || TotalVista() == 0 ? 1 : 0);
  LblInfo[0].Caption =
      Digits(TotalVista()) + " ( "_w + Digits(InicioPagina / kCells + 1) + "/"_w + Digits(pages) + " )  "_w;
}

}  // namespace vintoral
