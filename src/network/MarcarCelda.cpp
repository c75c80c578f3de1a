#include <algorithm>

#include "records/Monitores.h"
#include "station/form1/Form1.h"

namespace vintoral {

void Form1::MarcarCelda() {
  // The row that a ficha has left in the history may bear the same number.
  const auto shown = [this](const RegistroFicha& ficha) {
    return ficha.Posicion == NumeroEscrito() && EstaDentro(ficha);
  };
  const std::span<const RegistroFicha> page = Pagina();
  const auto found = std::find_if(page.begin(), page.end(), shown);
  ShpCelda.Cell = found == page.end() ? -1 : static_cast<int>(found - page.begin());
  ShpCelda.Visible = true;
}

}  // namespace vintoral
