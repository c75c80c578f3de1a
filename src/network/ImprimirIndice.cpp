#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::ImprimirIndice() {
  const auto cells = static_cast<std::int32_t>(ImgFicha.size());
  LimpiarPantalla();
  const std::int32_t pages = TotalVista() / cells + (TotalVista() % cells != 0 || TotalVista() == 0 ? 1 : 0);
  LblInfo[0].Caption =
      Digits(TotalVista()) + " ( "_w + Digits(InicioPagina / cells + 1) + "/"_w + Digits(pages) + " )  "_w;
}

}  // namespace vintoral
